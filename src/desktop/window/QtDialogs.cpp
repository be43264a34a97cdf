#include <QApplication>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QStandardPaths>
#include <QVBoxLayout>

#include "desktop/look/BoxIcon.h"
#include "desktop/look/Look.h"
#include "desktop/look/QtText.h"
#include "desktop/window/QtDesktop.h"
#include "desktop/window/ScreenWindow.h"

// The questions of the desktop: boxes, the input box and the file dialog.
namespace kvi {

namespace {

QMessageBox::StandardButtons ButtonsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      break;
    case Buttons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

QMessageBox::StandardButton ButtonOf(Answer answer) {
  switch (answer) {
    case Answer::Ok:
      return QMessageBox::Ok;
    case Answer::Cancel:
      return QMessageBox::Cancel;
    case Answer::Yes:
      return QMessageBox::Yes;
    case Answer::No:
      break;
  }
  return QMessageBox::No;
}

// The toolkit takes Escape and the close box for No where there is no Cancel. No may throw away
// what was typed, so here it is said by its button alone.
class UsualBox : public QMessageBox {
 public:
  UsualBox(const Box& box, QWidget* parent)
      : QMessageBox(NoIcon, ToQt(box.title), ToQt(box.text), ButtonsOf(box.buttons), parent),
        needsAnswer_(box.buttons == Buttons::YesNo) {
    if (needsAnswer_) setWindowFlag(Qt::WindowCloseButtonHint, false);
    if (box.defaultAnswer) setDefaultButton(ButtonOf(*box.defaultAnswer));
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (!needsAnswer_ || !event->matches(QKeySequence::Cancel)) QMessageBox::keyPressEvent(event);
  }
  void closeEvent(QCloseEvent* event) override {
    if (needsAnswer_)
      event->ignore();
    else
      QMessageBox::closeEvent(event);
  }

 private:
  const bool needsAnswer_;
};

// A box that ends without a button, as all do when the process ends, is the most careful answer
// that it offers.
Answer AnswerOf(int button, Buttons offered) {
  switch (button) {
    case QMessageBox::Ok:
      return Answer::Ok;
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    case QMessageBox::Cancel:
      return Answer::Cancel;
    default:
      break;
  }
  if (offered == Buttons::Ok) return Answer::Ok;
  return offered == Buttons::YesNo ? Answer::No : Answer::Cancel;
}

}  // namespace

QWidget* QtDesktop::DialogParent() const {
  return shown_.empty() ? nullptr : shown_.back().window;
}

int QtDesktop::RunDialog(QDialog& dialog) {
  dialogs_.push_back(&dialog);
  const int result = dialog.exec();
  std::erase(dialogs_, &dialog);
  if (QWidget* owner = DialogParent()) owner->activateWindow();
  return result;
}

Answer QtDesktop::ShowBox(const Box& box) {
  UsualBox dialog(box, DialogParent());
  dialog.setTextFormat(Qt::PlainText);
  dialog.setIconPixmap(BoxIcon(box.icon, dialog.devicePixelRatioF()));
  return AnswerOf(RunDialog(dialog), box.buttons);
}

std::optional<std::string> QtDesktop::AskText(const std::string& prompt, const std::string& title,
                                              const std::string& initial) {
  QDialog dialog(DialogParent());
  dialog.setWindowTitle(ToQt(title));
  auto* column = new QVBoxLayout(&dialog);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kSpacing);
  auto* label = new QLabel(ToQt(prompt), &dialog);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setMinimumWidth(340);
  auto* field = new QLineEdit(ToQt(initial), &dialog);
  field->setAccessibleName(ToQt(prompt));
  field->selectAll();
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
  column->addWidget(label);
  column->addWidget(field);
  column->addWidget(buttons);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  field->setFocus();
  if (RunDialog(dialog) != QDialog::Accepted) return std::nullopt;
  return FromQt(field->text());
}

std::optional<std::string> QtDesktop::AskFile(const FileDialog& question) {
  QFileDialog dialog(DialogParent(), ToQt(question.title));
  dialog.setFileMode(question.saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setAcceptMode(question.saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  if (question.saves && !question.filters.empty())
    dialog.setDefaultSuffix(ToQt(question.filters.front().pattern).section('.', -1));
  QStringList filters;
  for (const FileFilter& filter : question.filters) {
    // Some names show their pattern already; the toolkit reads it between brackets.
    const QString pattern = ToQt(filter.pattern).replace(';', ' ');
    filters << ToQt(filter.name).section(" (", 0, 0) + " (" + pattern + ")";
  }
  if (!filters.isEmpty()) dialog.setNameFilters(filters);
  const QFileInfo start(ToQt(question.start));
  if (start.isDir()) {
    dialog.setDirectory(start.filePath());
  } else if (!question.start.empty()) {
    dialog.setDirectory(start.isAbsolute() || start.exists()
                            ? start.path()
                            : QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.selectFile(start.fileName());
  }
  if (RunDialog(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return std::nullopt;
  return FromQt(dialog.selectedFiles().first());
}

}  // namespace kvi
