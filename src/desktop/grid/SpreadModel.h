#pragma once

#include <QAbstractTableModel>

#include "platform/Spread.h"

namespace kvi {

// Reads the grid directly; holds nothing but the size that the view was last told, so that a view
// in the middle of a bulk fill still paints (a cell outside reads as empty).
class SpreadModel : public QAbstractTableModel {
 public:
  explicit SpreadModel(const Spread& grid, QObject* parent);

  // Tells the view the grid's present size.
  void Sync();
  // What was a grid is gone.
  void Forget() { grid_ = nullptr; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  QString SpokenRow(int row) const;

  const Spread* grid_;
  int rows_ = 0, cols_ = 0;
};

}  // namespace kvi
