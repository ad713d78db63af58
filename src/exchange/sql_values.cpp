#include "sql_values.h"
#include "core/db.h"
#include "core/errors.h"

#include <QRegularExpression>

QString Bare_Value(const QString &value)
{
    static const QRegularExpression number(QStringLiteral("^\\s*[-+]?(\\d+\\.?\\d*|\\.\\d+)([eE][-+]?\\d+)?\\s*$"));
    if (value.compare(QLatin1String("NULL"), Qt::CaseInsensitive) == 0 || number.match(value).hasMatch())
        return value;
    if (value.trimmed().isEmpty())
        throw DbError(QStringLiteral("Syntax error in statement: a number is missing"));
    throw DbError(QStringLiteral("Data type mismatch: '") + value + QStringLiteral("' is not a number"));
}

short Int16_Field(const QString &value)
{
    if (value.trimmed().isEmpty())
        throw AppError(QStringLiteral("Type mismatch"));
    return To_Int16(QVariant(value.trimmed()));
}
