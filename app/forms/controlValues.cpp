#include "app/forms/controlValues.h"

#include <QFontMetrics>
#include <QRadioButton>

#include <algorithm>

namespace tarvik {

int StrMaxWidth(const QWidget* control, const QStringList& texts, int count)
{
    const QFontMetrics metrics(control->font());
    int widest = 0;
    for (const QString& text : texts.first(std::clamp<qsizetype>(count, 0, texts.size())))
        widest = std::max(widest, metrics.horizontalAdvance(text));
    return widest;
}

bool OptionGet(const QRadioButton* option)
{
    return option->isChecked();
}

void OptionSet(QRadioButton* option, bool value)
{
    option->setChecked(value);
}

} // namespace tarvik
