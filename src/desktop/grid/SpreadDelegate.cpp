#include "desktop/grid/SpreadDelegate.h"

#include <QComboBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QTextDocument>
#include <QToolTip>

#include "base/Flag.h"
#include "desktop/controls/LetterSearch.h"
#include "desktop/grid/SpreadView.h"
#include "desktop/look/Look.h"
#include "desktop/look/QtText.h"
#include "desktop/look/Shades.h"

namespace kvi {

namespace {

constexpr int kCellPadding = 4;

CellFormat FormatAt(const Spread& grid, const QModelIndex& index) {
  return grid.Format(index.row() + 1, index.column() + 1);
}

Qt::Alignment AlignmentOf(CellAlign align) {
  switch (align) {
    case CellAlign::Right:
      return Qt::AlignRight | Qt::AlignVCenter;
    case CellAlign::Center:
      return Qt::AlignCenter;
    case CellAlign::Left:
      break;
  }
  return Qt::AlignLeft | Qt::AlignVCenter;
}

void PaintTick(QPainter& painter, const QRect& cell, bool ticked) {
  QRect box(0, 0, 13, 13);
  box.moveCenter(cell.center());
  painter.setPen(kQuietInk);
  painter.setBrush(Qt::white);
  painter.drawRect(box);
  if (!ticked) return;
  painter.setPen(QPen(kAccent, 2));
  painter.drawPolyline(QPolygon(
      {box.topLeft() + QPoint(3, 6), box.topLeft() + QPoint(5, 9), box.topLeft() + QPoint(10, 3)}));
}

// A warning is told by more than its colour.
void PaintWarningMark(QPainter& painter, const QRect& cell) {
  const QPointF tip(cell.left() + 7, cell.center().y() + 0.5);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kWarning);
  painter.drawPolygon(QPolygonF({tip, tip + QPointF(-5, -4), tip + QPointF(-5, 4)}));
  painter.restore();
}

// A cell's list of choices. Letters look for an entry, Backspace takes the last one back, the
// arrows move; none of them ends the choosing, as a click or Enter does.
class ChoiceEditor : public QComboBox {
 public:
  using QComboBox::QComboBox;
  bool IsKeyUnderWay() const { return keyUnderWay_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool back = event->key() == Qt::Key_Backspace;
    if (!back && !LetterSearch::IsLetter(*event)) {
      const Flag key(keyUnderWay_);
      return QComboBox::keyPressEvent(event);
    }
    const int found = back ? search_.TakeBack(*this) : search_.Find(*this, event->text());
    if (found >= 0) setCurrentIndex(found);
  }

 private:
  LetterSearch search_;
  bool keyUnderWay_ = false;
};

}  // namespace

SpreadDelegate::SpreadDelegate(const Spread& grid, SpreadView& view)
    : QStyledItemDelegate(&view), grid_(grid), view_(view) {}

// The cell's own colour stays visible under a selection, which is laid over it as a wash; the
// active row has a fainter one, so that it can be followed over a wide grid.
void SpreadDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  const CellFormat format = FormatAt(grid_, index);
  const QModelIndex current = view_.currentIndex();
  QColor ground = BackdropColor(format.BackColor, format.ForeColor);
  if (!ground.isValid()) ground = Qt::white;
  if (current.isValid() && current.row() == index.row()) ground = Blend(ground, kAccent, 0.10);
  if (option.state.testFlag(QStyle::State_Selected)) ground = Blend(ground, kAccent, 0.16);
  painter->fillRect(option.rect, ground);
  if (format.BackColor == kBrightRed) PaintWarningMark(*painter, option.rect);

  const QColor ink = ClassicColor(format.ForeColor);
  painter->save();
  painter->setFont(option.font);
  painter->setPen(!option.state.testFlag(QStyle::State_Enabled) ? kQuietInk
                  : ink.isValid()                               ? ink
                                                                : kInk);
  const std::string& text = grid_.Text(index.row() + 1, index.column() + 1);
  if (format.Kind == CellKind::CheckBox) {
    PaintTick(*painter, option.rect, text == "1");
  } else if (!text.empty()) {
    const QRect room = option.rect.adjusted(kCellPadding, 0, -kCellPadding, 0);
    const QString shown = ToQt(text).replace('\n', ' ');
    painter->drawText(room,
                      static_cast<int>(AlignmentOf(format.Align).toInt() | Qt::TextSingleLine),
                      option.fontMetrics.elidedText(shown, Qt::ElideRight, room.width()));
  }
  if (current == index) {
    const bool active = view_.hasFocus() || view_.IsEditing();
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(active ? kAccent : kEdge, active ? 2 : 1));
    painter->drawRect(option.rect.adjusted(active ? 1 : 0, active ? 1 : 0, -1, -1));
  }
  painter->restore();
}

QWidget* SpreadDelegate::MakeChoice(QWidget* parent, int col) const {
  auto* choice = new ChoiceEditor(parent);
  choice->setFont(GridFont());
  choice->setAccessibleName(ToQt(grid_.Text(0, col)));
  for (const std::string& entry : grid_.Choices(col)) choice->addItem(ToQt(entry));
  connect(choice, &QComboBox::activated, this, [this, choice] {
    if (!choice->IsKeyUnderWay()) view_.FinishEditor(*choice, SpreadView::Step::None);
  });
  return choice;
}

QWidget* SpreadDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                      const QModelIndex& index) const {
  const CellFormat format = FormatAt(grid_, index);
  if (format.Kind == CellKind::List) return MakeChoice(parent, index.column() + 1);
  auto* editor = new QLineEdit(parent);
  editor->setFont(GridFont());
  editor->setAccessibleName(ToQt(grid_.Text(0, index.column() + 1)));
  editor->setFrame(false);
  editor->setTextMargins(0, 0, 0, 0);
  editor->setAlignment(AlignmentOf(format.Align));
  if (format.Kind == CellKind::Float) {
    static const QRegularExpression amount("[-+$0-9., ]*");
    editor->setValidator(new QRegularExpressionValidator(amount, editor));
  }
  return editor;
}

void SpreadDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  const QString text = index.data(Qt::EditRole).toString();
  if (auto* choice = qobject_cast<QComboBox*>(editor)) {
    choice->setCurrentIndex(choice->findText(text));
    return;
  }
  auto* line = static_cast<QLineEdit*>(editor);
  const int length = FormatAt(grid_, index).TypeEditLen;
  if (length > 0) line->setMaxLength(std::max(length, static_cast<int>(text.size())));
  line->setText(text);
}

void SpreadDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                  const QModelIndex& index) const {
  const auto* choice = qobject_cast<QComboBox*>(editor);
  if (choice != nullptr && choice->currentIndex() < 0) return;
  view_.Typed(index,
              choice != nullptr ? choice->currentText() : static_cast<QLineEdit*>(editor)->text());
}

void SpreadDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                          const QModelIndex&) const {
  editor->setGeometry(option.rect.adjusted(2, 2, -2, -2));
}

bool SpreadDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                               const QStyleOptionViewItem& option, const QModelIndex& index) {
  const QString text = index.data().toString();
  const bool cut =
      option.fontMetrics.horizontalAdvance(text) > option.rect.width() - 2 * kCellPadding;
  QToolTip::showText(event->globalPos(), cut ? Qt::convertFromPlainText(text) : QString(), view);
  return true;
}

// The keys of a spreadsheet: Enter and the arrows take the text over and go on. Where the editor
// was opened by F2 to mend a text, left and right stay inside.
bool SpreadDelegate::eventFilter(QObject* editor, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(editor);
  if (event->type() != QEvent::KeyPress || widget == nullptr)
    return QStyledItemDelegate::eventFilter(editor, event);
  const bool line = qobject_cast<QLineEdit*>(widget) != nullptr;
  const bool replacing = line && view_.IsReplacing();
  SpreadView::Step step = SpreadView::Step::None;
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      step = SpreadView::Step::Enter;
      break;
    case Qt::Key_Tab:
      step = SpreadView::Step::Next;
      break;
    case Qt::Key_Backtab:
      step = SpreadView::Step::Previous;
      break;
    case Qt::Key_Up:
      if (line) step = SpreadView::Step::Up;
      break;
    case Qt::Key_Down:
      if (line) step = SpreadView::Step::Down;
      break;
    case Qt::Key_Left:
      if (replacing) step = SpreadView::Step::Left;
      break;
    case Qt::Key_Right:
      if (replacing) step = SpreadView::Step::Right;
      break;
    default:
      break;
  }
  if (step == SpreadView::Step::None) return QStyledItemDelegate::eventFilter(editor, event);
  view_.FinishEditor(*widget, step);
  return true;
}

}  // namespace kvi
