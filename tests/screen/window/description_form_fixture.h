// tests/screen/window/description_form_fixture.h: a document window with a visible description.
#pragma once

#include "screen/document/description.h"
#include "screen/window/descriptionEdit.h"
#include "tests/screen/screen_form_fixture.h"

#include <QTextBlock>
#include <QTextLayout>

namespace tarvik {

class DescriptionForms : public ScreenForms {
protected:
    WindowId OpenWithDescription(const QString& text = {})
    {
        const WindowId id = Open();
        DescrSetVisible(true, id);
        DescrSetText(id, text);
        Description(id).setFocus();
        return id;
    }

    /// The lines displayed in the box.
    static QStringList Shown(const DescriptionBox& box)
    {
        QStringList lines;
        for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
            for (int at = 0; at < block.layout()->lineCount(); ++at) {
                const QTextLine line = block.layout()->lineAt(at);
                lines.append(block.text().mid(line.textStart(), line.textLength()));
            }
        }
        return lines;
    }
};

} // namespace tarvik
