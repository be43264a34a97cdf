#pragma once

#include <QColor>
#include <QString>
#include <QWidget>
#include <functional>

namespace kvi {

// A plain area of a window. It paints its colour itself: as a palette the colour would leak into
// everything that stands on it. Without a colour what lies below shows.
class Panel : public QWidget {
 public:
  explicit Panel(QWidget* parent = nullptr);
  void SetColor(const QColor& color);

  // Told when the mouse moves over the free area.
  std::function<void()> MouseOver;

  // What a widget stands on.
  static QColor BackdropOf(const QWidget& widget);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  QColor color_;
};

// A thin rounded frame with a title over its upper left corner.
class TitledPanel : public Panel {
 public:
  explicit TitledPanel(QString title, QWidget* parent = nullptr);
  // Room that the title takes above the content.
  int TitleHeight() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString title_;
};

}  // namespace kvi
