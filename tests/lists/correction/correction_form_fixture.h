// tests/lists/correction/correction_form_fixture.h: drives the correction set editor.
#pragma once

#include "tests/lists/correction/correction_fixture.h"
#include "tests/lists/editor/editor_form_fixture.h"

#include "lists/correction/FmEditorCorrectionSet.h"

#include <QScrollBar>
#include <QTabWidget>

namespace tarvik {

class CorrectionForm : public CorrectionTest<EditorFormTest<FmEditorCorrectionSet>> {
protected:
    void TypeHeader()
    {
        TypeAndLeave("TbFileName", "Mast");
        TypeAndLeave("TbAntName", "Dipole");
    }
    void TypeRow(int index, const QString& frequency, const QString& passive, const QString& active)
    {
        TypeAndLeave(QStringLiteral("KT_TbCol_freq[%1]").arg(index), frequency);
        TypeAndLeave(QStringLiteral("KT_TbCol_passive[%1]").arg(index), passive);
        TypeAndLeave(QStringLiteral("KT_TbCol_active[%1]").arg(index), active);
    }
    QTabWidget& Tabs()
    {
        return Find<QTabWidget>(form, "CsTab");
    }
    int TopRow(const QString& bar)
    {
        return Find<QScrollBar>(form, bar).value();
    }
};

} // namespace tarvik
