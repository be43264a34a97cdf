#include "desktop/window/ProgressWindow.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look/Look.h"
#include "desktop/look/QtText.h"

namespace kvi {

namespace {

constexpr int kWidth = 380;

// Its close box and Escape are Cancel where there is one, else they do nothing; the routine alone
// takes it away.
class StandingDialog : public QDialog {
 public:
  using QDialog::QDialog;
  std::function<void()> Cancel;
  void reject() override {
    if (Cancel) Cancel();
  }
};

}  // namespace

ProgressWindow::ProgressWindow(QString title, bool canCancel, QWidget* owner,
                               const ProgressPace& pace)
    : title_(std::move(title)), canCancel_(canCancel), owner_(owner), pace_(pace) {
  clock_.start();
}

ProgressWindow::~ProgressWindow() {
  if (window_ == nullptr) return;
  window_->hide();
  if (owner_) owner_->activateWindow();
}

bool ProgressWindow::Lasts(qint64 elapsed) const {
  if (elapsed >= pace_.patience) return true;
  return elapsed >= pace_.shortest && Done() > 0 && elapsed * Total() / Done() >= pace_.lasting;
}

void ProgressWindow::Told() {
  const qint64 now = clock_.elapsed();
  if (window_ == nullptr) {
    if (!Lasts(now)) return;
    Open();
  } else if (now - shownAt_ < pace_.repaint) {
    return;
  }
  Show();
  QCoreApplication::processEvents();
  shownAt_ = clock_.elapsed();
}

void ProgressWindow::Open() {
  auto window = std::make_unique<StandingDialog>(owner_);
  window->setWindowTitle(title_);
  window->setWindowModality(Qt::ApplicationModal);
  window->setWindowFlag(Qt::WindowCloseButtonHint, canCancel_);
  auto* column = new QVBoxLayout(window.get());
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kSpacing);
  step_ = new QLabel(window.get());
  step_->setTextFormat(Qt::PlainText);
  bar_ = new QProgressBar(window.get());
  bar_->setMinimumWidth(kWidth);
  bar_->setFormat("%v of %m");
  bar_->setAccessibleName(title_);
  column->addWidget(step_);
  column->addWidget(bar_);
  if (canCancel_) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, window.get());
    QObject::connect(buttons, &QDialogButtonBox::rejected, window.get(), &QDialog::reject);
    column->addWidget(buttons);
    window->Cancel = [this] {
      cancelled_ = true;
      Show();
    };
  }
  window_ = std::move(window);
  Show();
  window_->show();
}

void ProgressWindow::Show() {
  step_->setText(cancelled_ ? "Cancelling ..." : ToQt(Step()));
  bar_->setRange(0, Total());
  bar_->setValue(std::min(Done(), Total()));
}

}  // namespace kvi
