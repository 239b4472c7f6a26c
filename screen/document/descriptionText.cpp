#include "screen/document/descriptionText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace tarvik {

namespace {

/// First and last of the characters that delimit frames in a QTextDocument; they count as line ends.
constexpr char16_t kFrameBegin = 0xFDD0;
constexpr char16_t kFrameEnd = 0xFDD1;

bool IsLineEnd(QChar character)
{
    return character == u'\n' || character == u'\r' || character == QChar::LineSeparator
        || character == QChar::ParagraphSeparator || character == QChar(kFrameBegin) || character == QChar(kFrameEnd);
}

bool IsShown(QChar character)
{
    return character.category() != QChar::Other_Control && character != QChar::ObjectReplacementCharacter;
}

QChar Plain(QChar character)
{
    if (IsLineEnd(character))
        return u'\n';
    return IsShown(character) ? character : QChar(u' ');
}

/// `paragraph` has no line end.
std::unique_ptr<QTextLayout> LayOut(const QString& paragraph, const QFont& font, int width)
{
    auto layout = std::make_unique<QTextLayout>(paragraph, font);
    layout->setTextOption(DescriptionBreaks());
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine())
        line.setLineWidth(width);
    layout->endLayout();
    DescriptionPlaceLines(*layout, font);
    return layout;
}

} // namespace

QString DescriptionPlain(const QString& text)
{
    QString plain = text;
    plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (QChar& character : plain)
        character = Plain(character);
    return plain;
}

QTextOption DescriptionBreaks()
{
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

int DescriptionPitch(const QFont& font)
{
    return QFontMetrics(font).height();
}

void DescriptionPlaceLines(const QTextLayout& paragraph, const QFont& font)
{
    const QFontMetrics metrics(font);
    for (int at = 0; at < paragraph.lineCount(); ++at) {
        QTextLine line = paragraph.lineAt(at);
        line.setPosition({ 0, at * metrics.height() + metrics.ascent() - line.ascent() });
    }
}

DescriptionText::DescriptionText(const QString& plain, const QFont& font, int width)
    : text_(plain)
    , font_(font)
{
    const QStringList paragraphs = plain.split(u'\n');
    for (const QString& paragraph : paragraphs)
        paragraphs_.push_back(LayOut(paragraph, font, width));
}

DescriptionText::~DescriptionText() = default;

int DescriptionText::LineCount() const
{
    int count = 0;
    for (const auto& paragraph : paragraphs_)
        count += paragraph->lineCount();
    return count;
}

QStringList DescriptionText::Lines() const
{
    QStringList lines;
    for (const auto& paragraph : paragraphs_) {
        for (int at = 0; at < paragraph->lineCount(); ++at) {
            const QTextLine line = paragraph->lineAt(at);
            lines.append(paragraph->text().mid(line.textStart(), line.textLength()));
        }
    }
    return lines;
}

QString DescriptionText::FirstLines(int count) const
{
    qsizetype start = 0;
    for (const auto& paragraph : paragraphs_) {
        if (count < paragraph->lineCount())
            return text_.left(
                count <= 0 ? std::max<qsizetype>(start - 1, 0) : start + paragraph->lineAt(count).textStart());
        count -= paragraph->lineCount();
        start += paragraph->text().size() + 1;
    }
    return text_;
}

void DescriptionText::Paint(QPainter& painter, QPoint leftTop) const
{
    QPoint at = leftTop;
    const int pitch = DescriptionPitch(font_);
    for (const auto& paragraph : paragraphs_) {
        paragraph->draw(&painter, at);
        at.ry() += paragraph->lineCount() * pitch;
    }
}

} // namespace tarvik
