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

class PictureAdapter : public ControlAdapter {
 public:
  PictureAdapter(PictureBox& box, WindowContext& context);

 protected:
  void ShowState() override;
  void ShowColors() override {}

 private:
  PictureBox& box_;
  PictureFrame& shown_;
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

class StatusAdapter : public ControlAdapter {
 public:
  StatusAdapter(StatusBar& bar, WindowContext& context);

 protected:
  void ShowState() override;
  void ShowColors() override {}

 private:
  StatusBar& bar_;
  StatusLine& shown_;
};

}  // namespace kvi
