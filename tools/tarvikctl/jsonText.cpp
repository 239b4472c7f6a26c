#include "tools/tarvikctl/jsonText.h"

#include "app/text/ansi.h"

#include <QJsonDocument>
#include <QSet>

#include <cmath>
#include <limits>

namespace tarvik {

namespace {

QString Encoded(const QJsonValue& value)
{
    const QByteArray array = QJsonDocument(QJsonArray{ value }).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.sliced(1, array.size() - 2));
}

/// Finds a key that occurs twice in an object, in a text that is valid JSON. The parser keeps the last one silently.
class DuplicateFinder {
public:
    explicit DuplicateFinder(const QByteArray& text)
        : text_(text)
    {
    }

    /// What is wrong, or an empty text.
    QString Find()
    {
        for (; at_ < text_.size(); ++at_) {
            const char character = text_[at_];
            if (character == '{' || character == '[')
                levels_.push_back({ character == '[', character == '{', 0, {}, {} });
            else if (character == '}' || character == ']')
                levels_.pop_back();
            else if (character == ',')
                NextItem();
            else if (character == '"' && !TakeString())
                return Complaint();
        }
        return {};
    }

private:
    /// An array or object that contains the current place.
    struct Level {
        bool IsArray;
        bool ExpectsKey;
        int Index; ///< of the item of an array
        QString Key; ///< of the member of an object
        QSet<QString> Keys;
    };

    void NextItem()
    {
        Level& level = levels_.back();
        level.ExpectsKey = !level.IsArray;
        ++level.Index;
    }

    /// Moves to the end of a string; false if it is a key that occurs twice.
    bool TakeString()
    {
        const qsizetype start = at_;
        for (++at_; text_[at_] != '"'; ++at_)
            at_ += text_[at_] == '\\' ? 1 : 0;
        Level& level = levels_.back();
        if (!level.ExpectsKey)
            return true;
        level.ExpectsKey = false;
        const QByteArray quoted = text_.sliced(start, at_ + 1 - start);
        level.Key = QJsonDocument::fromJson('[' + quoted + ']').array().first().toString();
        const bool isNew = !level.Keys.contains(level.Key);
        level.Keys.insert(level.Key);
        return isNew;
    }

    QString Complaint() const
    {
        QString place;
        for (size_t depth = 0; depth + 1 < levels_.size(); ++depth) {
            const Level& level = levels_[depth];
            place += level.IsArray ? QStringLiteral("[%1]").arg(level.Index)
                                   : (place.isEmpty() ? QString() : QStringLiteral(".")) + level.Key;
        }
        if (!place.isEmpty())
            place += QStringLiteral(": ");
        return place + JsonString(levels_.back().Key) + QStringLiteral(" occurs twice");
    }

    const QByteArray& text_;
    qsizetype at_ = 0;
    std::vector<Level> levels_;
};

} // namespace

void JsonWriter::Add(const char* key, const QString& encoded)
{
    members_.append(QStringLiteral("\"%1\": ").arg(QLatin1String(key)) + encoded);
}

void JsonWriter::operator()(const char* key, const bool& value)
{
    Add(key, Encoded(value));
}

void JsonWriter::operator()(const char* key, const double& value)
{
    Add(key, Encoded(value));
}

void JsonWriter::operator()(const char* key, const std::int16_t& value)
{
    Add(key, QString::number(value));
}

void JsonWriter::operator()(const char* key, const std::int32_t& value)
{
    Add(key, QString::number(value));
}

void JsonWriter::operator()(const char* key, const QString& value)
{
    Add(key, Encoded(value));
}

void JsonWriter::operator()(const char* key, const std::vector<double>& values)
{
    QStringList numbers;
    for (const double value : values)
        numbers.append(Encoded(value));
    Add(key, u'[' + numbers.join(QStringLiteral(", ")) + u']');
}

void JsonReader::Fail(const QString& key, const char* what)
{
    if (!error_.isEmpty())
        return;
    const QString start = place_.isEmpty() ? QString() : place_ + QStringLiteral(": ");
    error_ = start + JsonString(key) + u' ' + QLatin1String(what);
}

QJsonValue JsonReader::Take(const char* key)
{
    const QJsonValue value = object_.take(QLatin1String(key));
    if (value.isUndefined() && missing_.isEmpty())
        missing_ = QLatin1String(key);
    return error_.isEmpty() ? value : QJsonValue(QJsonValue::Undefined);
}

void JsonReader::operator()(const char* key, bool& value)
{
    const QJsonValue member = Take(key);
    if (!member.isUndefined() && !member.isBool())
        Fail(QLatin1String(key), "is not true or false");
    value = member.toBool();
}

void JsonReader::operator()(const char* key, double& value)
{
    const QJsonValue member = Take(key);
    if (!member.isUndefined() && !member.isDouble())
        Fail(QLatin1String(key), "is not a number");
    value = member.toDouble();
}

void JsonReader::Integer(const char* key, double least, double most, double& value)
{
    (*this)(key, value);
    if (value != std::trunc(value) || value < least || value > most)
        Fail(QLatin1String(key), "is not a whole number of this range");
    if (!error_.isEmpty())
        value = 0;
}

void JsonReader::operator()(const char* key, std::int16_t& value)
{
    double number = 0;
    Integer(key, std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max(), number);
    value = static_cast<std::int16_t>(number);
}

void JsonReader::operator()(const char* key, std::int32_t& value)
{
    double number = 0;
    Integer(key, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max(), number);
    value = static_cast<std::int32_t>(number);
}

void JsonReader::operator()(const char* key, QString& value)
{
    const QJsonValue member = Take(key);
    if (!member.isUndefined() && !member.isString())
        Fail(QLatin1String(key), "is not a string");
    value = member.toString();
    if (!IsAnsi(value) || value.contains(QChar::Null))
        Fail(QLatin1String(key), "has a character that no list can hold");
}

void JsonReader::operator()(const char* key, QJsonArray& values)
{
    const QJsonValue member = Take(key);
    if (!member.isUndefined() && !member.isArray())
        Fail(QLatin1String(key), "is not an array");
    values = member.toArray();
}

void JsonReader::operator()(const char* key, QJsonObject& value)
{
    const QJsonValue member = Take(key);
    if (!member.isUndefined() && !member.isObject())
        Fail(QLatin1String(key), "is not an object");
    value = member.toObject();
}

void JsonReader::operator()(const char* key, std::vector<double>& values)
{
    QJsonArray members;
    (*this)(key, members);
    values.clear();
    for (const auto& member : members) {
        if (!member.isDouble())
            Fail(QLatin1String(key), "is not an array of numbers");
        values.push_back(member.toDouble());
    }
}

QString JsonReader::Finish()
{
    if (!object_.isEmpty())
        Fail(object_.keys().front(), "is not known");
    if (!missing_.isEmpty())
        Fail(missing_, "is missing");
    return error_;
}

QString JsonString(const QString& text)
{
    return Encoded(text);
}

QString JsonRows(const QStringList& objects, const QString& indent)
{
    if (objects.isEmpty())
        return QStringLiteral("[]");
    const QString separator = QStringLiteral(",\n") + indent + QStringLiteral("  ");
    return QStringLiteral("[\n") + indent + QStringLiteral("  ") + objects.join(separator) + u'\n' + indent + u']';
}

QString ParseJson(const QByteArray& text, QJsonObject& object)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        const auto line = text.first(std::min<qsizetype>(error.offset, text.size())).count('\n') + 1;
        return QStringLiteral("line %1: %2").arg(QString::number(line), error.errorString());
    }
    if (!document.isObject())
        return QStringLiteral("not a JSON object");
    object = document.object();
    return DuplicateFinder(text).Find();
}

} // namespace tarvik
