#include "desktop/window/ScreenReaderFaces.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QLineEdit>

#include "desktop/controls/ComboWidget.h"
#include "desktop/controls/ShowAdapters.h"
#include "desktop/look/Panel.h"
#include "desktop/window/ScreenWindow.h"

namespace kvi {

namespace {

// One combo as one thing, called by its label. The toolkit calls it by its text, which is told as
// its value here. Where it is typed into, the text is the line edit's; a list-only one has no text
// that could be followed, so its name bears the choice: readers tell a name that changes.
class ComboFace : public QAccessibleWidget {
 public:
  explicit ComboFace(ComboWidget& combo)
      : QAccessibleWidget(&combo, QAccessible::ComboBox), combo_(combo) {}

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Value) return combo_.currentText();
    const QString words = QAccessibleWidget::text(kind);
    const bool bearsChoice =
        kind == QAccessible::Name && !combo_.isEditable() && !combo_.currentText().isEmpty();
    return bearsChoice ? words + ": " + combo_.currentText() : words;
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.hasPopup = state.expandable = true;
    state.expanded = combo_.view()->isVisible();
    state.editable = combo_.isEditable();
    return state;
  }
  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  QStringList actionNames() const override {
    return QStringList(showMenuAction()) + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    if (action == showMenuAction())
      combo_.showPopup();
    else
      QAccessibleWidget::doAction(action);
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    const bool isText =
        type == QAccessible::TextInterface || type == QAccessible::EditableTextInterface;
    if (!isText || !combo_.isEditable()) return QAccessibleWidget::interface_cast(type);
    return QAccessible::queryAccessibleInterface(combo_.lineEdit())->interface_cast(type);
  }

 private:
  ComboWidget& combo_;
};

QAccessibleInterface* MakeFace(const QString&, QObject* object) {
  if (auto* window = dynamic_cast<ScreenWindow*>(object))
    return new QAccessibleWidget(window,
                                 window->isModal() ? QAccessible::Dialog : QAccessible::Window);
  if (auto* combo = dynamic_cast<ComboWidget*>(object)) return new ComboFace(*combo);
  if (auto* frame = dynamic_cast<TitledPanel*>(object))
    return new QAccessibleWidget(frame, QAccessible::Grouping);
  if (auto* picture = dynamic_cast<PictureFrame*>(object))
    return new QAccessibleWidget(picture, QAccessible::Graphic);
  if (auto* line = dynamic_cast<StatusLine*>(object))
    return new QAccessibleWidget(line, QAccessible::StatusBar);
  return nullptr;
}

}  // namespace

void InstallScreenReaderFaces() {
  QAccessible::installFactory(MakeFace);
}

}  // namespace kvi
