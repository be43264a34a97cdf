#include "jet/dialect/JetWriter.h"

namespace kvi::jet {

void JetWriter::Select(bool outermost) {
  const std::size_t firstTable = tables_.size();
  Shape shape;
  shape.keyed = shape.outermost = outermost;
  const std::size_t start = out_.size();
  SelectCore(shape);
  while (tokens_.TakeIf("UNION")) {
    out_ += tokens_.TakeIf("ALL") ? " UNION ALL " : " UNION ";
    tables_.resize(firstTable);
    Shape arm;
    arm.keyed = false;
    SelectCore(arm);
    // SQLite limits the whole, and not one side.
    if (!shape.top.empty() || !arm.top.empty()) tokens_.Fail("Syntax error in TOP");
    shape.keyed = false;
    shape.united = true;
  }
  if (shape.united) Unite(start);
  std::string order = OrderBy(shape);
  if (!shape.top.empty()) out_.append(" LIMIT ").append(shape.top);
  if (outermost && shape.keyed) {
    result_.OrderBy = std::move(order);
  } else if (outermost) {
    result_.Table.clear();
    result_.Where.clear();
    result_.Columns.clear();
  }
  tables_.resize(firstTable);
}

void JetWriter::SelectCore(Shape& shape) {
  const bool outerAggregates = aggregates_;
  aggregates_ = false;
  shape.firstTable = tables_.size();
  tokens_.Expect("SELECT");
  out_ += "SELECT ";
  shape.listStart = out_.size();
  SelectHead(shape);
  SelectList(shape);
  if (tokens_.TakeIf("FROM")) {
    out_ += " FROM ";
    JoinedTables(shape);
  } else {
    shape.keyed = false;
  }
  FindDates(shape);
  std::string where = Where();
  Grouping(shape);
  if (aggregates_) shape.keyed = false;
  aggregates_ = outerAggregates;
  // A dynaset is not read through `Sql`, so its `*` may stay.
  if (shape.keyed && !tokens_.Peek().Is("UNION")) {
    result_.Table = tables_.back().name;
    result_.Where = std::move(where);
  } else {
    ExpandStars(shape);
  }
  FinishCore(shape);
}

void JetWriter::SelectHead(Shape& shape) {
  if (tokens_.TakeIf("DISTINCT")) {
    shape.distinct = true;
    shape.keyed = false;
    Distinct(shape);
  } else if (!tokens_.TakeIf("DISTINCTROW")) {
    tokens_.TakeIf("ALL");
  }
  if (!tokens_.TakeIf("TOP")) return;
  const JetToken count = tokens_.Take();
  if (count.kind != JetToken::Kind::Number) tokens_.Fail("Syntax error in TOP");
  shape.top = count.text;
  shape.keyed = false;
}

void JetWriter::Distinct(Shape&) {
  out_ += "DISTINCT ";
}

void JetWriter::SelectList(Shape& shape) {
  int ordinal = 0;
  do {
    if (ordinal > 0) out_ += ", ";
    SelectItem(shape, ordinal++);
  } while (tokens_.TakeSymbolIf(","));
  if (!shape.stars.empty() && ordinal > 1) shape.keyed = false;
}

void JetWriter::SelectItem(Shape& shape, int ordinal) {
  if (StarItem(shape)) return;
  const Operand item = Or();
  shape.items.push_back({item, out_.size()});
  if (item.call != nullptr && item.call->IsExtreme()) shape.extremes.emplace_back(ordinal, item);
  if (tokens_.TakeIf("AS")) {
    out_ += " AS ";
    Name(TakeFreeName());
    shape.keyed = false;
  } else if (item.column.empty()) {
    out_ += " AS [Expr" + std::to_string(1000 + ordinal) + "]";
    shape.keyed = false;
  } else if (shape.keyed) {
    result_.Columns.emplace_back(item.column);
  }
}

// A `*`, alone or behind a table's name.
bool JetWriter::StarItem(Shape& shape) {
  std::string_view qualifier;
  if (tokens_.Peek().IsFreeName()) {
    JetTokens ahead = tokens_;
    qualifier = ahead.Take().text;
    if (!ahead.TakeSymbolIf(".") || !ahead.Peek().IsSymbol("*")) return false;
    tokens_ = ahead;
  }
  if (!tokens_.TakeSymbolIf("*")) return false;
  const std::size_t start = out_.size();
  if (!qualifier.empty()) out_.append("[").append(qualifier).append("].");
  out_ += '*';
  shape.stars.push_back({start, out_.size() - start, qualifier});
  return true;
}

// The list stands before the tables that tell what its fields are.
void JetWriter::FindDates(const Shape& shape) {
  if (!shape.outermost || !shape.stars.empty()) return;
  for (const auto& [place, call] : shape.extremes)
    if (KindOf({0, Kind::Unknown, call.argumentQualifier, call.argument}) == Kind::Date)
      result_.DatePlaces.push_back(place);
}

void JetWriter::ExpandStars(const Shape& shape) {
  // From the last one on, so that the places of those before it stay.
  for (auto star = shape.stars.rbegin(); star != shape.stars.rend(); ++star) {
    const std::string fields = FieldsForStar(star->qualifier, shape.firstTable);
    if (!fields.empty()) out_.replace(star->start, star->length, fields);
  }
}

void JetWriter::Grouping(Shape& shape) {
  if (tokens_.TakeIf("GROUP")) {
    shape.keyed = false;
    tokens_.Expect("BY");
    out_ += " GROUP BY ";
    do {
      if (out_.back() != ' ') out_ += ", ";
      EndGroup(shape, Or());
    } while (tokens_.TakeSymbolIf(","));
  }
  if (tokens_.TakeIf("HAVING")) {
    shape.keyed = false;
    out_ += " HAVING ";
    AsCondition(Or());
  }
}

// Returns the order as written, without the words.
std::string JetWriter::OrderBy(Shape& shape) {
  if (!tokens_.TakeIf("ORDER")) {
    FinishOrder(shape);
    return {};
  }
  tokens_.Expect("BY");
  out_ += " ORDER BY ";
  const std::size_t start = out_.size();
  do {
    if (out_.size() > start) out_ += ", ";
    // A bare number is the place of a column, and would be none as a parameter.
    Operand term{out_.size(), Kind::Number};
    if (tokens_.Peek().kind == JetToken::Kind::Number)
      out_ += tokens_.Take().text;
    else
      term = Or();
    const bool descending = tokens_.TakeIf("DESC");
    if (!descending) tokens_.TakeIf("ASC");
    OrderTerm(shape, term, descending);
  } while (tokens_.TakeSymbolIf(","));
  std::string order = out_.substr(start);
  FinishOrder(shape);
  return order;
}

void JetWriter::OrderTerm(Shape&, const Operand&, bool descending) {
  if (descending) out_ += " DESC";
}

void JetWriter::JoinedTables(Shape& shape) {
  if (++depth_ > kMaxDepth) tokens_.Fail("Expression too complex");
  JoinOperand(shape);
  for (;;) {
    if (tokens_.TakeSymbolIf(",")) {
      out_ += ", ";
      JoinOperand(shape);
    } else if (JoinWord()) {
      JoinOperand(shape);
      tokens_.Expect("ON");
      out_ += " ON ";
      AsCondition(Or());
    } else {
      break;
    }
    shape.keyed = false;
  }
  --depth_;
}

bool JetWriter::JoinWord() {
  if (tokens_.TakeIf("INNER")) {
    out_ += " INNER JOIN ";
  } else if (tokens_.Peek().Is("LEFT") || tokens_.Peek().Is("RIGHT")) {
    out_ += tokens_.Take().Is("LEFT") ? " LEFT JOIN " : " RIGHT JOIN ";
    tokens_.TakeIf("OUTER");
  } else {
    return false;
  }
  tokens_.Expect("JOIN");
  return true;
}

void JetWriter::JoinOperand(Shape& shape) {
  if (tokens_.TakeSymbolIf("(")) {
    out_ += '(';
    const bool subselect = tokens_.Peek().Is("SELECT");
    if (subselect)
      Select(false);
    else
      JoinedTables(shape);
    tokens_.ExpectSymbol(")");
    out_ += ')';
    if (!subselect) return;
    shape.keyed = false;
    tables_.push_back({});
  } else {
    TargetTable();
  }
  const bool as = tokens_.TakeIf("AS");
  if (!as && !tokens_.Peek().IsFreeName()) return;
  const JetToken alias = TakeFreeName();
  out_ += " AS ";
  Name(alias);
  tables_.back().alias = alias.text;
  shape.keyed = false;
}

}  // namespace kvi::jet
