#pragma once

#include <QStyledItemDelegate>

#include "platform/Spread.h"

namespace kvi {

class SpreadView;

// Paints a cell in its grid's colours and makes its editor. What was typed goes to the view, which
// hands it to the system once the editor is gone.
class SpreadDelegate : public QStyledItemDelegate {
 public:
  SpreadDelegate(const Spread& grid, SpreadView& view);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;
  // Shows a cut-off text in full.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  bool eventFilter(QObject* editor, QEvent* event) override;

 private:
  QWidget* MakeChoice(QWidget* parent, int col) const;

  const Spread& grid_;
  SpreadView& view_;
};

}  // namespace kvi
