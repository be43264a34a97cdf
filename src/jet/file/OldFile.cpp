#include "jet/file/OldFile.h"

#include <set>

#include "base/Text.h"
#include "jet/file/TableReader.h"

namespace kvi::jetfile {
namespace {

constexpr std::uint32_t kCataloguePage = 2;
constexpr int kTable = 1, kOdbcLink = 4, kQuery = 5, kLink = 6;
constexpr std::uint32_t kSystemFlags = 0x80000002, kPageBits = 0xFFFFFF;

// The columns of the catalogue that are looked at, by their names.
class CatalogueRow {
 public:
  explicit CatalogueRow(const TableDefinition& table) {
    id_ = Required(table, "Id", ColumnType::Long);
    type_ = Required(table, "Type", ColumnType::Integer);
    flags_ = Required(table, "Flags", ColumnType::Long);
    name_ = Required(table, "Name", ColumnType::Text);
    place_ = Find(table, "Database");
    connect_ = Find(table, "Connect");
    within_ = Find(table, "ForeignName");
  }

  bool IsWhole() const {
    return !values[id_].IsNull() && !values[type_].IsNull() && !values[name_].IsNull();
  }
  int Type() const { return static_cast<int>(values[type_].AsWhole()); }
  std::uint32_t Page() const {
    return static_cast<std::uint32_t>(values[id_].AsWhole()) & kPageBits;
  }
  const std::string& Name() const { return values[name_].AsText(); }
  std::string Place() const { return TextOf(Type() == kOdbcLink ? connect_ : place_); }
  std::string Within() const { return TextOf(within_); }
  // What is left over from a deletion, or belongs to a form, counts as none of the user's.
  bool IsSystem() const {
    const std::uint32_t flags =
        values[flags_].IsNull() ? 0 : static_cast<std::uint32_t>(values[flags_].AsWhole());
    const std::string name = UCase(Name());
    return (flags & kSystemFlags) != 0 || name.starts_with("MSYS") || name.starts_with("~");
  }

  std::vector<Value> values;

 private:
  static constexpr std::size_t kNone = ~std::size_t{0};

  static std::size_t Find(const TableDefinition& table, std::string_view name) {
    for (std::size_t i = 0; i < table.Columns.size(); ++i)
      if (EqualsNoCase(table.Columns[i].Name, name)) return i;
    return kNone;
  }
  static std::size_t Required(const TableDefinition& table, std::string_view name,
                              ColumnType type) {
    const std::size_t found = Find(table, name);
    if (found == kNone || table.Columns[found].Type != type)
      RaiseDamaged("The file has no catalogue of its tables.");
    return found;
  }
  std::string TextOf(std::size_t column) const {
    return column == kNone ? "" : values[column].Text();
  }

  std::size_t id_, type_, flags_, name_, place_, connect_, within_;
};

}  // namespace

OldFile::OldFile(const std::string& path, const std::string& password) : pages_(path, password) {
  try {
    ReadCatalogue();
  } catch (const FileError& error) {
    if (error.Kind != Fault::Damaged) throw;
    RaiseDamaged("The file's catalogue of tables is damaged: " + error.Description);
  }
}

void OldFile::ReadCatalogue() {
  TableReader rows(pages_, kCataloguePage);
  CatalogueRow row(rows.Definition());
  std::set<std::uint32_t> definitions;
  std::vector<std::string> damage;
  while (rows.Next(row.values)) {
    if (!row.IsWhole() || row.IsSystem()) continue;
    switch (row.Type()) {
      case kTable:
        // Two tables on one definition: one of them is not what it says.
        if (!definitions.insert(row.Page()).second)
          damage.push_back(row.Name() + " has the definition of another table");
        else
          objects_.push_back({Object::Kind::Table, row.Name(), row.Page(), "", ""});
        break;
      case kLink:
      case kOdbcLink:
        objects_.push_back({Object::Kind::Linked, row.Name(), 0, row.Place(), row.Within()});
        break;
      case kQuery:
        objects_.push_back({Object::Kind::Query, row.Name(), 0, "", ""});
        break;
      default:
        break;
    }
  }
  damage_ = rows.Damage();
  damage_.insert(damage_.end(), damage.begin(), damage.end());
}

std::string OldFile::VersionName() const {
  return pages_.Version() == Version::Jet3 ? "Jet 3" : "Jet 4";
}

}  // namespace kvi::jetfile
