#include "print/printer/PdfPages.h"

#include "app/state/project.h"
#include "app/values/general.h"

#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QtMath>

namespace tarvik {

PdfPages::PdfPages(QIODevice& device, const Sheet& sheet)
    : sheet_(sheet)
    , writer_(std::make_unique<QPdfWriter>(&device))
{
    const QPageSize size(QSizeF(sheet.Paper.X, sheet.Paper.Y), QPageSize::Inch, QString(), QPageSize::ExactMatch);
    writer_->setPageSize(size);
    writer_->setPageMargins(QMarginsF());
    writer_->setResolution(qRound(sheet.DotsPerInch.X));
}

PdfPages::~PdfPages() = default;

bool PdfPages::Begin(const QString& title)
{
    writer_->setTitle(title);
    writer_->setCreator(QStringLiteral("Tarvik"));
    painter_ = std::make_unique<QPainter>();
    return painter_->begin(writer_.get());
}

QPainter* PdfPages::NewPage()
{
    if (hasPage_ && !writer_->newPage())
        return nullptr;
    hasPage_ = true;
    painter_->resetTransform();
    painter_->translate(sheet_.Offset.X * sheet_.DotsPerInch.X, sheet_.Offset.Y * sheet_.DotsPerInch.Y);
    return painter_.get();
}

bool PdfPages::End()
{
    return painter_->end();
}

} // namespace tarvik
