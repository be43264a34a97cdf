#include "jet/postgres/ServerFunctions.h"

#include <string_view>

#include "base/RunTimeError.h"
#include "jet/postgres/ServerCharacters.h"
#include "jet/sqlite/JetFunctions.h"

namespace kvi::jet {
namespace {

struct Function {
  std::string_view signature, result, body;
};

// These the server writes into the statement as they stand, so that indexes serve. (A function that
// were declared strict would stay a call.)
constexpr Function kPlain[] = {
    {"key(double precision)", "double precision", "$1"},
    {"key(bigint)", "bigint", "$1"},
    {"key(smallint)", "smallint", "$1"},
    {"key(timestamp)", "timestamp", "$1"},
    {"key(boolean)", "boolean", "$1"},
    {"first(anyarray)", "anyelement", "$1[1]"},
    {"truth(boolean)", "boolean", "$1"},
    {"truth(double precision)", "boolean", "$1 <> 0"},
    {"truth(bigint)", "boolean", "$1 <> 0"},
    {"truth(smallint)", "boolean", "$1 <> 0"},
    {"iif(boolean, anycompatible, anycompatible)", "anycompatible",
     "CASE WHEN $1 THEN $2 ELSE $3 END"},
    {"nz(text)", "text", "coalesce($1, '')"},
    {"nz(double precision)", "double precision", "coalesce($1, 0)"},
    {"nz(bigint)", "bigint", "coalesce($1, 0)"},
    {"nz(anycompatible, anycompatible)", "anycompatible", "coalesce($1, $2)"},
    {"\"isnull\"(anyelement)", "smallint", "(CASE WHEN $1 IS NULL THEN -1 ELSE 0 END)::smallint"},
    {"val(double precision)", "double precision", "$1"},
    {"val(text)", "double precision",
     "CASE WHEN $1 COLLATE \"C\" ~ '^[0-9]{1,15}(\\.[0-9]{0,15})?$' THEN $1::double precision "
     "ELSE kvi.read_number($1, false) END"},
    {"cdbl(double precision)", "double precision", "$1"},
    {"cdbl(text)", "double precision", "kvi.read_number($1, true)"},
    {"\"int\"(double precision)", "double precision", "floor($1)"},
    {"\"int\"(text)", "double precision", "floor(kvi.read_number($1, true))"},
    {"jet_text(text)", "text", "coalesce($1, '')"},
    {"jet_text(double precision)", "text", "coalesce(kvi.str($1), '')"},
    {"jet_text(bigint)", "text", "coalesce(kvi.str($1), '')"},
    {"jet_text(timestamp)", "text", "coalesce(kvi.str($1), '')"},
    {"cstr(text)", "text", "$1"},
    {"len(text)", "bigint", "length($1)::bigint"},
    {"\"left\"(text, double precision)", "text",
     "CASE WHEN $1 IS NOT NULL AND NOT ($2 >= 0 AND $2 < 1e9) THEN kvi.refuse(5, $1, $2) "
     "ELSE pg_catalog.left($1, trunc($2)::integer) END"},
    {"\"right\"(text, double precision)", "text",
     "CASE WHEN $1 IS NOT NULL AND NOT ($2 >= 0 AND $2 < 1e9) THEN kvi.refuse(5, $1, $2) "
     "ELSE pg_catalog.right($1, trunc($2)::integer) END"},
    {"mid(text, double precision)", "text",
     "CASE WHEN $1 IS NOT NULL AND NOT ($2 >= 1 AND $2 < 1e9) THEN kvi.refuse(5, $1, $2) "
     "ELSE substr($1, trunc($2)::integer) END"},
    {"mid(text, double precision, double precision)", "text",
     "CASE WHEN $1 IS NOT NULL AND ((NOT ($2 >= 1 AND $2 < 1e9) AND $3 IS NOT NULL) OR "
     "(NOT ($3 >= 0 AND $3 < 1e9) AND $2 IS NOT NULL)) THEN kvi.refuse(5, $1, $2 + $3) "
     "ELSE substr($1, trunc($2)::integer, trunc($3)::integer) END"},
    {"jet_like(text, text)", "boolean", "kvi.fold($1) COLLATE \"C\" ~ kvi.jet_pattern($2)"},
    {"jet_date(timestamp)", "timestamp", "$1"},
    {"jet_date(double precision)", "timestamp",
     "CASE WHEN $1 >= -657434 AND $1 < 2958465 THEN timestamp '1899-12-30' + "
     "make_interval(days => floor($1)::integer, secs => floor(($1 - floor($1)) * 86400 + 0.5)) "
     "ELSE kvi.refuse(3464, '', $1)::timestamp END"},
    {"jet_date(text)", "timestamp", "kvi.read_date($1)"},
};

// A number or a date in a text's place is its text.
constexpr Function kOfText[] = {
    {"cstr(", "text", ")"},
    {"ucase(", "text", ")"},
    {"lcase(", "text", ")"},
    {"len(", "bigint", ")"},
    {"\"left\"(", "text", ", double precision)"},
    {"\"right\"(", "text", ", double precision)"},
    {"mid(", "text", ", double precision)"},
    {"mid(", "text", ", double precision, double precision)"},
    {"jet_like(", "boolean", ", text)"},
};

// Raises an error of ours. It is given the values at fault only so that the server, which works out
// what is constant before it starts, does not meet it ahead of its time.
constexpr std::string_view kRefuse = R"sql(
CREATE FUNCTION kvi.refuse(integer, text, double precision) RETURNS text
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $kvi$
BEGIN
  RAISE EXCEPTION USING ERRCODE = 'KVI01', MESSAGE = '%begin%' || $1 || ' ' || CASE $1
    WHEN 5 THEN '%5%' WHEN 6 THEN '%6%' WHEN 93 THEN 'Invalid pattern string' ELSE '%3464%' END;
END $kvi$;
)sql";

// The general text form of numbers and the stored one of dates; Null stays Null. (Fifteen digits,
// which is what the setting makes of the server's own form.)
constexpr std::string_view kForms = R"sql(
CREATE FUNCTION kvi.str_of(double precision) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE SET extra_float_digits = 0 AS
$kvi$ SELECT replace($1::text, 'e', 'E') $kvi$;
CREATE FUNCTION kvi.str(double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$kvi$ SELECT CASE WHEN $1 > -1e15 AND $1 < 1e15 AND trunc($1) = $1 THEN $1::bigint::text
  ELSE kvi.str_of($1) END $kvi$;
CREATE FUNCTION kvi.str(bigint) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$kvi$ SELECT CASE WHEN $1 > -1000000000000000 AND $1 < 1000000000000000 THEN $1::text
  ELSE kvi.str_of($1::double precision) END $kvi$;
CREATE FUNCTION kvi.str(timestamp) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS
$kvi$ BEGIN RETURN CASE WHEN $1 = date_trunc('day', $1) THEN to_char($1, 'YYYY-MM-DD')
  ELSE to_char($1, 'YYYY-MM-DD HH24:MI:SS') END; END $kvi$;
)sql";

// Val: the longest prefix that is a number, blanks in it passed over. What no double holds is 0, or
// refused where it is too large and the caller wants that told.
constexpr std::string_view kReadNumber = R"sql(
CREATE FUNCTION kvi.read_number(text, refuses boolean) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $kvi$
DECLARE
  number text COLLATE "C" := translate((regexp_match(translate($1 COLLATE "C", E' \t\r\n', ''),
    '^[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eEdD][+-]?[0-9]+)?'))[1], 'EdD', 'eee');
  exponent text COLLATE "C" := split_part(number, 'e', 2);
  large boolean;
  size numeric;
BEGIN
  IF number IS NULL OR split_part(number, 'e', 1) !~ '[1-9]' THEN RETURN 0; END IF;
  IF length(ltrim(exponent, '+-0')) > 4 THEN
    large := exponent !~ '^-';
    size := 0;
  ELSE
    size := abs(number::numeric);
    large := size >= 1.797693134862315807e308;
  END IF;
  IF large AND refuses THEN PERFORM kvi.refuse(6, $1, 0); END IF;
  IF large OR size <= 2.4703282292062328e-324 THEN RETURN 0; END IF;
  RETURN number::double precision;
END $kvi$;
)sql";

// The pattern of LIKE as a regular expression over folded texts. Where a list ends before it says
// anything it is a character of its own (a minus at either end, a lone exclamation mark); a range
// that runs backwards holds nothing.
constexpr std::string_view kPattern = R"sql(
CREATE FUNCTION kvi.jet_list(list text) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $kvi$
DECLARE
  negated boolean := list COLLATE "C" ~ '^!.';
  rest text COLLATE "C" := kvi.fold(CASE WHEN negated THEN substr(list, 2) ELSE list END);
  minus text COLLATE "C" := kvi.fold('-');
  high text COLLATE "C";
  class text COLLATE "C" := '';
BEGIN
  WHILE rest <> '' LOOP
    high := CASE WHEN substr(rest, 2, 1) = minus AND length(rest) > 2 THEN substr(rest, 3, 1) END;
    IF high IS NULL THEN
      class := class || substr(rest, 1, 1);
    ELSIF substr(rest, 1, 1) <= high THEN
      class := class || substr(rest, 1, 1) || '-' || high;
    END IF;
    rest := substr(rest, CASE WHEN high IS NULL THEN 2 ELSE 4 END);
  END LOOP;
  IF class = '' THEN RETURN CASE WHEN negated THEN '.' ELSE '(?!.*)' END; END IF;
  RETURN CASE WHEN negated THEN '[^' ELSE '[' END || class || ']';
END $kvi$;
CREATE FUNCTION kvi.jet_pattern(pattern text) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $kvi$
DECLARE
  rest text COLLATE "C" := pattern;
  result text COLLATE "C" := '^';
  ends integer;
BEGIN
  WHILE rest <> '' LOOP
    ends := 1;
    CASE substr(rest, 1, 1)
      WHEN '*' THEN result := result || '.*';
      WHEN '?' THEN result := result || '.';
      WHEN '#' THEN result := result || '[' || kvi.fold('0') || '-' || kvi.fold('9') || ']';
      WHEN '[' THEN
        ends := strpos(rest, ']');
        IF ends = 0 THEN PERFORM kvi.refuse(93, pattern, 0); END IF;
        IF ends > 2 THEN result := result || kvi.jet_list(substr(rest, 2, ends - 2)); END IF;
      ELSE result := result || kvi.fold(substr(rest, 1, 1));
    END CASE;
    rest := substr(rest, ends + 1);
  END LOOP;
  RETURN result || '$';
END $kvi$;
)sql";

// Dates as a person types them, by the rules of CDate; the stored form is one of them.
constexpr std::string_view kReadDate = R"sql(
CREATE FUNCTION kvi.read_day(text, OUT year integer, OUT month integer, OUT day integer)
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $kvi$
DECLARE
  rest text COLLATE "C" := upper($1 COLLATE "C");
  named boolean := rest ~ '[A-Z]';
  separator text COLLATE "C" := '';
  parts text[] COLLATE "C" := '{}';
  taken text COLLATE "C";
  name integer;
  months text[] COLLATE "C" := '{JANUARY,FEBRUARY,MARCH,APRIL,MAY,JUNE,JULY,AUGUST,SEPTEMBER,OCTOBER,NOVEMBER,DECEMBER}';
BEGIN
  LOOP
    taken := (regexp_match(rest, '^(?:[A-Z]+|[0-9]{1,4}(?![0-9]))'))[1];
    IF taken IS NULL THEN RETURN; END IF;
    rest := substr(rest, length(taken) + 1);
    IF taken ~ '[A-Z]' THEN
      SELECT i INTO name FROM generate_subscripts(months, 1) AS i
        WHERE taken IN (months[i], substr(months[i], 1, 3));
      IF name IS NULL THEN RETURN; END IF;
      IF month IS NULL THEN month := name; ELSE parts := parts || name::text; END IF;
    ELSE
      parts := parts || taken;
    END IF;
    EXIT WHEN rest = '';
    IF rest ~ '^[-/]' THEN
      IF separator NOT IN ('', substr(rest, 1, 1)) THEN RETURN; END IF;
      separator := substr(rest, 1, 1);
      rest := substr(rest, 2);
    ELSE
      IF NOT named OR separator <> '' OR rest !~ '^[, ]' THEN RETURN; END IF;
      rest := ltrim(rest, ', ');
    END IF;
  END LOOP;
  IF cardinality(parts) <> (CASE WHEN month IS NULL THEN 3 ELSE 2 END) THEN RETURN; END IF;
  IF length(parts[1]) > 2 THEN
    taken := parts[1];
    parts := parts[2:];
  ELSE
    taken := parts[cardinality(parts)];
    parts := trim_array(parts, 1);
  END IF;
  IF length(parts[1]) > 2 OR length(parts[2]) > 2 THEN RETURN; END IF;
  day := parts[cardinality(parts)];
  IF month IS NULL THEN
    month := parts[1];
    IF month > 12 AND day <= 12 THEN SELECT day, month INTO month, day; END IF;
  END IF;
  year := taken::integer + CASE WHEN length(taken) > 2 THEN 0
    WHEN taken::integer < 30 THEN 2000 ELSE 1900 END;
END $kvi$;
CREATE FUNCTION kvi.read_date(text) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $kvi$
DECLARE
  typed text COLLATE "C" := btrim($1);
  parts text[] COLLATE "C" := regexp_match(typed,
    '^([^:]*) ([0-9]{1,2}):([0-9]{1,2})(?::([0-9]{1,2}))?( *[AaPp][Mm])?$');
  d record;
  hour integer := coalesce(parts[2], '0');
  minute integer := coalesce(parts[3], '0');
  second integer := coalesce(parts[4], '0');
BEGIN
  IF parts IS NOT NULL OR typed !~ ':' THEN
    d := kvi.read_day(rtrim(coalesce(parts[1], typed)));
    IF parts[5] IS NOT NULL THEN
      IF hour NOT BETWEEN 1 AND 12 THEN hour := 24; END IF;
      IF hour = 12 THEN hour := 0; END IF;
      IF parts[5] ~* 'p' AND hour < 12 THEN hour := hour + 12; END IF;
    END IF;
    IF d.year >= 100 AND d.month BETWEEN 1 AND 12 AND d.day >= 1 AND hour < 24 AND minute < 60
        AND second < 60 THEN
      IF d.day <= extract(day FROM make_date(d.year, d.month, 1) + interval '1 month - 1 day') THEN
        RETURN make_timestamp(d.year, d.month, d.day, hour, minute, second);
      END IF;
    END IF;
  END IF;
  PERFORM kvi.refuse(3464, $1, 0);
END $kvi$;
)sql";

// The least and the greatest text, the first of those that are equal; sums of whole numbers stay
// whole.
constexpr std::string_view kAggregates = R"sql(
CREATE FUNCTION kvi.lesser(text, text) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $kvi$ BEGIN
  RETURN CASE WHEN kvi.key($2) COLLATE "C" < kvi.key($1) THEN $2 ELSE $1 END; END $kvi$;
CREATE FUNCTION kvi.greater(text, text) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $kvi$ BEGIN
  RETURN CASE WHEN kvi.key($2) COLLATE "C" > kvi.key($1) THEN $2 ELSE $1 END; END $kvi$;
CREATE AGGREGATE kvi.min(text) (SFUNC = kvi.lesser, STYPE = text);
CREATE AGGREGATE kvi.max(text) (SFUNC = kvi.greater, STYPE = text);
CREATE AGGREGATE kvi.sum(bigint) (SFUNC = int8pl, STYPE = bigint);
)sql";

constexpr std::string_view kSchema = R"sql(
CREATE SCHEMA kvi;
CREATE TABLE kvi.settings(name text PRIMARY KEY, value text NOT NULL);
CREATE DOMAIN kvi.jet_boolean AS smallint CHECK (VALUE IN (0, -1));
CREATE DOMAIN kvi.jet_single AS double precision;
)sql";

std::string Replaced(std::string text, std::string_view what, std::string_view with) {
  for (std::size_t at; (at = text.find(what)) != std::string::npos;)
    text.replace(at, what.size(), with);
  return text;
}

std::string Plain(const Function& function) {
  return "CREATE FUNCTION kvi." + std::string(function.signature) + " RETURNS " +
         std::string(function.result) + " LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $kvi$ SELECT " +
         std::string(function.body) + " $kvi$;\n";
}

std::string OverOther(const Function& function, const char* type) {
  const std::string name(function.signature), others(function.body);
  std::string call = "kvi." + name + "kvi.str($1)";
  int argument = 1;
  for (const char c : others)
    if (c == ',') call += ", $" + std::to_string(++argument);
  const std::string signature = name + type + others;
  return Plain({signature, function.result, call + ")"});
}

}  // namespace

std::string ServerFunctions() {
  std::string refuse = Replaced(std::string(kRefuse), "%begin%", kFunctionFailed);
  for (const int number : {5, 6, 3464})
    refuse = Replaced(refuse, "%" + std::to_string(number) + "%", DescriptionOf(number));
  std::string sql = std::string(kSchema) + CharacterFunctions() + refuse;
  for (const std::string_view part : {kForms, kReadNumber, kPattern, kReadDate}) sql += part;
  for (const Function& function : kPlain) sql += Plain(function);
  for (const Function& function : kOfText)
    for (const char* type : {"double precision", "timestamp"}) sql += OverOther(function, type);
  sql += kAggregates;
  return sql + "INSERT INTO kvi.settings VALUES('version', '" + std::to_string(kServerVersion) +
         "'), ('look_ms', '50');\n";
}

}  // namespace kvi::jet
