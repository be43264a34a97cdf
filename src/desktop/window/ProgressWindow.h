#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <memory>

#include "platform/Progress.h"

class QDialog;
class QLabel;
class QProgressBar;
class QWidget;

namespace kvi {

// When a progress comes into sight, in milliseconds.
struct ProgressPace {
  qint64 patience = 500;  // before the window comes, unless `lasting` is foretold
  qint64 shortest = 100;  // before anything is foretold
  qint64 lasting = 1000;  // in all, by what was done so far
  qint64 repaint = 100;   // between two pictures
};

// Progress as a small window over the one in front. It comes once the routine lasts, is brought up
// to date a few times a second, and takes all input while it stands; events are handled only then.
class ProgressWindow : public Progress {
 public:
  ProgressWindow(QString title, bool canCancel, QWidget* owner, const ProgressPace& pace = {});
  ~ProgressWindow() override;

  bool Cancelled() const override { return cancelled_; }
  // Null until it has come.
  QDialog* Window() const { return window_.get(); }

 protected:
  void Told() override;

 private:
  bool Lasts(qint64 elapsed) const;
  void Open();
  void Show();

  const QString title_;
  const bool canCancel_;
  const QPointer<QWidget> owner_;
  const ProgressPace pace_;
  QElapsedTimer clock_;
  qint64 shownAt_ = 0;
  bool cancelled_ = false;
  std::unique_ptr<QDialog> window_;
  QLabel* step_ = nullptr;
  QProgressBar* bar_ = nullptr;
};

}  // namespace kvi
