#include "desktop/controls/ShowAdapters.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include "desktop/look/ElidingLabel.h"
#include "desktop/look/Look.h"
#include "desktop/look/Picture.h"
#include "desktop/look/QtText.h"
#include "desktop/window/ScreenWindow.h"

namespace kvi {

void PictureFrame::SetPicture(const QString& path) {
  picture_ = path.isEmpty() ? QPixmap() : QPixmap::fromImage(ReadPicture(path));
  update();
}

void PictureFrame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setPen(kEdge);
  painter.setBrush(picture_.isNull() ? kLockedColor : QColor(Qt::white));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  if (picture_.isNull()) return;
  const QRect room = rect().adjusted(4, 4, -4, -4);
  QRect area(QPoint(), picture_.size().scaled(room.size(), Qt::KeepAspectRatio));
  area.moveCenter(room.center());
  painter.drawPixmap(area, picture_);
}

PictureAdapter::PictureAdapter(PictureBox& box, ScreenWindow& window)
    : TypedAdapter(box, new PictureFrame(&window), window) {}

void PictureAdapter::ShowState() {
  shown_.SetPicture(ToQt(control_.Path));
}

StatusLine::StatusLine(int panels, QWidget* parent) : QWidget(parent) {
  setAccessibleName("Status");
  auto* line = new QHBoxLayout(this);
  constexpr int kAbove = 4;
  line->setContentsMargins(kMargin, kAbove, kMargin, kAbove);
  line->setSpacing(2 * kMargin);
  // Also without a text, or the first one would take its height from the window's content.
  setMinimumHeight(fontMetrics().height() + 2 * kAbove);
  for (int i = 0; i < panels; ++i) {
    auto* text = new ElidingLabel(this);
    QPalette quiet;
    quiet.setColor(QPalette::WindowText, kQuietInk);
    text->setPalette(quiet);
    line->addWidget(text);
    texts_.push_back(text);
  }
  line->addStretch(1);
}

void StatusLine::SetText(int panel, const QString& text) {
  QLabel& label = *texts_[static_cast<std::size_t>(panel)];
  label.setText(text);
  label.setVisible(!text.isEmpty());
}

void StatusLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), kHeadingColor);
  painter.setPen(kEdge);
  painter.drawLine(0, 0, width(), 0);
}

StatusAdapter::StatusAdapter(StatusBar& bar, ScreenWindow& window)
    : TypedAdapter(bar, new StatusLine(bar.PanelCount(), &window), window) {}

void StatusAdapter::ShowState() {
  for (int panel = 1; panel <= control_.PanelCount(); ++panel)
    shown_.SetText(panel - 1, ToQt(control_.PanelText(panel)));
}

}  // namespace kvi
