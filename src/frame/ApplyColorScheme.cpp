#include "frame/ApplyColorScheme.h"

#include "base/Number.h"
#include "base/Text.h"
#include "frame/Application.h"
#include "platform/Controls.h"

namespace kvi {

namespace {

struct Scheme {
  int background, foreground;
};

constexpr Scheme kSchemes[] = {{kDarkGrey, kWhite},  {kLightGrey, kWhite}, {kDarkGrey, kBlack},
                               {kLightGrey, kBlack}, {kRed, kWhite},       {kBlue, kWhite},
                               {kMagenta, kWhite}};

const Scheme* SchemeOf(const std::string& text) {
  const double number = Val(text);
  for (int scheme = 1; scheme <= static_cast<int>(std::size(kSchemes)); ++scheme)
    if (number == scheme) return &kSchemes[scheme - 1];
  return nullptr;
}

}  // namespace

void ApplyColorScheme(Application& app, Screen& form) {
  const Scheme* scheme = SchemeOf(app.settings.ColorScheme);
  app.HighlightColor = scheme ? scheme->foreground : kWhite;
  if (scheme == nullptr) return;
  form.SetBackColor(scheme->background);
  for (Control* control : form.Controls()) {
    if (!control->HasColors() || Left(UCase(control->Name()), 5) == "SSTAB") continue;
    if (control->BackColor == kBlack) control->BackColor = scheme->background;
    if (control->ForeColor == kWhite) control->ForeColor = scheme->foreground;
  }
}

}  // namespace kvi
