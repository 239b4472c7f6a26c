// app/forms/controlValues.h: widths of texts in a control, and states of options.
#pragma once

#include <QStringList>

class QRadioButton;
class QWidget;

namespace tarvik {

/// Width in pixels of the widest text in the control's font, among the first `count` that exist and are not empty;
/// 0 for a count below 1.
int StrMaxWidth(const QWidget* control, const QStringList& texts, int count);

bool OptionGet(const QRadioButton* option);
void OptionSet(QRadioButton* option, bool value);

} // namespace tarvik
