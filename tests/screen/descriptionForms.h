// tests/screen/descriptionForms.h: a document window that shows its description.
#pragma once

#include "screen/description.h"
#include "screen/descriptionEdit.h"
#include "tests/screen/screenForms.h"

#include <QTextBlock>
#include <QTextLayout>

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

    /// The lines that the box shows.
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
