#include "competitor_checks.h"
#include "competitor_columns.h"
#include "event_lists.h"
#include "core/errors.h"

#include <cmath>
#include <limits>

double Typed_Number(const QString &text)
{
    QString t = text.trimmed();
    bool negate = false;
    if (t.size() > 2 && t.startsWith(QLatin1Char('(')) && t.endsWith(QLatin1Char(')'))) {
        t = t.mid(1, t.size() - 2).trimmed();
        negate = true;
    }
    bool ok = false;
    const double d = t.toDouble(&ok);
    if (!ok || !std::isfinite(d) || t.contains(QLatin1String("inf"), Qt::CaseInsensitive))
        throw AppError(QStringLiteral("Type mismatch"));
    return negate ? -d : d;
}

short Typed_Int16(const QString &text)
{
    const double d = Typed_Number(text);
    if (d < -32768.5 || d >= 32767.5)
        throw AppError(QStringLiteral("Overflow"));
    return static_cast<short>(std::nearbyint(d));
}

qint32 Typed_Int32(const QString &text)
{
    const double d = Typed_Number(text);
    if (d < -2147483648.5 || d >= 2147483647.5)
        throw AppError(QStringLiteral("Overflow"));
    return static_cast<qint32>(std::nearbyint(d));
}

Cell_Check Check_Competitor_Cell(int col, QString &text, const QStringList &codes)
{
    using namespace Competitor_Col;
    if ((col == Forename || col == Surname) && text.isEmpty())
        return {false,
                QStringLiteral("Forename and surname are required! If you wish to delete this record, enter a value first"),
                QStringLiteral("Missing Data")};
    if (col == Number) {
        if (text.isEmpty())
            return {false,
                    QStringLiteral("Number is required! If you wish to delete this record, enter a value 0 into the field!"),
                    QStringLiteral("Missing Data")};
        Typed_Int16(text);
        for (QChar c : {QLatin1Char('('), QLatin1Char('+'), QLatin1Char('-'), QLatin1Char('.')})
            if (text.contains(c))
                return {false, QStringLiteral("Invalid number!"), QStringLiteral("Invalid Data")};
    }
    if (col == Postcode)
        text = text.toUpper();
    if ((col == Age || col == Fee) && !text.isEmpty() && Typed_Int32(text) < 0)
        return {false, QStringLiteral("Value must be positive!"), QStringLiteral("Invalid Data")};
    if (col >= First_Event && col <= Last_Event && !Group_Exists(codes, text))
        return {false, QStringLiteral("Invalid event! Use 'F2' for list"), QStringLiteral("Invalid Data")};
    return {};
}
