#pragma once

#include <QAbstractButton>
#include <QColor>

class QTextLayout;

namespace kvi {

// The widget of an action label: a text that is pressed by mouse, Enter, Space and its access key,
// with a visible focus. As a tile it is large, wraps its text and shows its outline; standing alone
// on a light panel it is a rounded patch. The text keeps its colour; where it could not be read the
// ground gives way, at rest, under the mouse and pressed.
class ActionButton : public QAbstractButton {
 public:
  enum class Look { Patch, Action, Tile };

  explicit ActionButton(QWidget* parent = nullptr);
  void SetLook(Look look);
  // The digit that presses a tile, shown in its corner; 0 is none.
  void SetNumber(int number);
  void SetColors(const QColor& fore, const QColor& back);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  // A tile is as high as its text needs in the width that it gets.
  bool hasHeightForWidth() const override { return look_ == Look::Tile; }
  int heightForWidth(int width) const override;

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor Ground() const;
  // What stands beside it in a direction, or null.
  ActionButton* Neighbour(const QPoint& direction) const;
  // Breaks the text into lines for a width; the height.
  double LayOutTile(QTextLayout& layout, int width) const;

  Look look_ = Look::Patch;
  int number_ = 0;
  QColor fore_ = Qt::white, back_ = Qt::black;
};

}  // namespace kvi
