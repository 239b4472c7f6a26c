// tools/tarvikctl/jsonText.h: lists as JSON: objects with keys in a fixed order, and reading them back strictly.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace tarvik {

/// Visits the fields of a record and writes them as the members of an object on one line.
class JsonWriter {
public:
    void operator()(const char* key, const bool& value);
    void operator()(const char* key, const double& value);
    void operator()(const char* key, const QString& value);
    void operator()(const char* key, const std::vector<double>& values);
    void operator()(const char* key, const std::int16_t& value);
    void operator()(const char* key, const std::int32_t& value);

    QString Object() const
    {
        return QStringLiteral("{ ") + members_.join(QStringLiteral(", ")) + QStringLiteral(" }");
    }

private:
    void Add(const char* key, const QString& encoded);

    QStringList members_;
};

/// Visits the fields of a record and reads them from an object. An error is a member of another type, or a text that a
/// list cannot hold, else a member that no field has taken, else one that is missing.
class JsonReader {
public:
    /// `place` names the object in errors, e.g. "row 3"; empty for the outermost one.
    JsonReader(const QJsonObject& object, QString place)
        : object_(object)
        , place_(std::move(place))
    {
    }

    void operator()(const char* key, bool& value);
    void operator()(const char* key, double& value);
    void operator()(const char* key, std::int16_t& value);
    void operator()(const char* key, std::int32_t& value);
    void operator()(const char* key, QString& value);
    void operator()(const char* key, std::vector<double>& values);
    void operator()(const char* key, QJsonArray& values);
    void operator()(const char* key, QJsonObject& value);

    /// The error, also of members that are left over; empty if there is none.
    QString Finish();

private:
    /// The member, or an undefined value after an error.
    QJsonValue Take(const char* key);
    void Integer(const char* key, double least, double most, double& value);
    void Fail(const QString& key, const char* what);

    QJsonObject object_;
    QString place_;
    QString error_;
    QString missing_; ///< key of the first missing member
};

/// `text` as a JSON string, with its quotes.
QString JsonString(const QString& text);

/// Objects as an array, one a line; `indent` is that of the array's own line.
QString JsonRows(const QStringList& objects, const QString& indent);

/// The one object of a JSON text; an empty error, else what is wrong with it. A key that occurs twice in an object is
/// an error.
QString ParseJson(const QByteArray& text, QJsonObject& object);

} // namespace tarvik
