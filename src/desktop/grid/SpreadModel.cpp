#include "desktop/grid/SpreadModel.h"

#include "desktop/look/QtText.h"

namespace kvi {

SpreadModel::SpreadModel(const Spread& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(&grid) {}

void SpreadModel::Sync() {
  if (grid_ == nullptr) return;
  const int rows = grid_->MaxRows(), cols = grid_->MaxCols();
  if (cols != cols_) {
    beginResetModel();
    rows_ = rows;
    cols_ = cols;
    endResetModel();
  } else if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
}

int SpreadModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int SpreadModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : cols_;
}

QVariant SpreadModel::data(const QModelIndex& index, int role) const {
  if (grid_ == nullptr) return {};
  const int row = index.row() + 1, col = index.column() + 1;
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return ToQt(grid_->Text(row, col));
    case Qt::AccessibleTextRole:
      if (grid_->Format(row, col).Kind != CellKind::CheckBox) return ToQt(grid_->Text(row, col));
      return grid_->Text(row, col) == "1" ? "checked" : "not checked";
    case Qt::AccessibleDescriptionRole: {
      // The toolkit's account of a cell leaves both out.
      QStringList states;
      if (flags(index).testFlag(Qt::ItemIsEditable)) states << "editable";
      if (grid_->Format(row, col).BackColor == kBrightRed) states << "warning";
      return states.join(", ");
    }
    default:
      return {};
  }
}

// A row is numbered, and spoken of by what stays in view of it.
QString SpreadModel::SpokenRow(int row) const {
  QStringList words;
  for (const int col : grid_->KeptCols) words << ToQt(grid_->Text(row, col));
  words.removeAll(QString());
  return words.isEmpty() ? ToQt(grid_->Text(row, 1)) : words.join(", ");
}

QVariant SpreadModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (grid_ == nullptr) return {};
  if (orientation == Qt::Vertical && role == Qt::AccessibleTextRole) return SpokenRow(section + 1);
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  return ToQt(grid_->Text(0, section + 1));
}

Qt::ItemFlags SpreadModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (grid_ == nullptr) return flags;
  const CellFormat format = grid_->Format(index.row() + 1, index.column() + 1);
  const bool typed = format.Kind != CellKind::Static && format.Kind != CellKind::CheckBox;
  if (typed && !format.Lock) flags |= Qt::ItemIsEditable;
  return flags;
}

}  // namespace kvi
