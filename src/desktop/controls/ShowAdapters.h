#pragma once

#include <QPixmap>
#include <QWidget>
#include <vector>

#include "desktop/controls/ControlAdapter.h"
#include "platform/Controls.h"

class QLabel;

namespace kvi {

// Shows a picture as large as its frame allows, in its own proportions.
class PictureFrame : public QWidget {
 public:
  using QWidget::QWidget;
  void SetPicture(const QString& path);
  QSize sizeHint() const override { return {220, 170}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
};

class PictureAdapter : public TypedAdapter<PictureBox, PictureFrame> {
 public:
  PictureAdapter(PictureBox& box, ScreenWindow& window);

 protected:
  void ShowState() override;
  void ShowColors() override {}
};

// The line of texts at the foot of a window.
class StatusLine : public QWidget {
 public:
  StatusLine(int panels, QWidget* parent);
  void SetText(int panel, const QString& text);  // from 0

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<QLabel*> texts_;
};

class StatusAdapter : public TypedAdapter<StatusBar, StatusLine> {
 public:
  StatusAdapter(StatusBar& bar, ScreenWindow& window);

 protected:
  void ShowState() override;
  void ShowColors() override {}
};

}  // namespace kvi
