#include "desktop/controls/ComboAdapter.h"

#include <QLineEdit>
#include <QPointer>

#include "desktop/controls/ComboWidget.h"
#include "desktop/look/QtText.h"
#include "platform/Gestures.h"

namespace kvi {

ComboAdapter::ComboAdapter(ComboBox& combo, ScreenWindow& window)
    : TypedAdapter(combo, new ComboWidget, window) {
  shown_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  shown_.setMinimumContentsLength(18);
  shown_.setMaxVisibleItems(18);
  if (IsEditable()) {
    shown_.setEditable(true);
    shown_.lineEdit()->setTextMargins(1, 0, 0, 0);
    ShowBeginningWhenLeft(*shown_.lineEdit());
    // The toolkit's would put entries into the text that nobody typed.
    shown_.setCompleter(nullptr);
    connect(shown_.lineEdit(), &QLineEdit::textEdited, this,
            [this](const QString& text) { TakeTyped(text); });
  }
  connect(&shown_, &QComboBox::activated, this, [this](int index) {
    if (shown_.IsPicking()) Hand([&](Gestures& user) { user.Choose(control_, index); });
  });
}

// The part that was added is selected, so that the next letter replaces it and Delete takes it
// away.
void ComboAdapter::TakeTyped(const QString& text) {
  const QString completed = shown_.Completed(text);
  const QPointer<ComboAdapter> self(this);
  Hand([&](Gestures& user) { user.Type(control_, FromQt(completed)); });
  QLineEdit* line = self ? shown_.lineEdit() : nullptr;
  if (line != nullptr && completed != text && line->text() == completed)
    line->setSelection(static_cast<int>(completed.size()),
                       static_cast<int>(text.size() - completed.size()));
}

void ComboAdapter::ShowState() {
  if (control_.ListCount() < shown_.count()) shown_.clear();
  for (int i = shown_.count(); i < control_.ListCount(); ++i)
    shown_.addItem(ToQt(control_.List(i)));
  // The toolkit chooses the first entry of an empty list by itself.
  if (shown_.currentIndex() != control_.ListIndex()) shown_.setCurrentIndex(control_.ListIndex());
  const QString text = ToQt(control_.Text);
  if (IsEditable() && shown_.lineEdit()->text() != text) {
    shown_.setEditText(text);
    if (!shown_.hasFocus()) shown_.lineEdit()->setCursorPosition(0);
  }
}

}  // namespace kvi
