#include "cell_check.h"

#include "core/db.h"

short To_Whole_Number(const QString &text)
{
    const QString t = text.trimmed();
    int i = 0;
    if (t.startsWith(QLatin1Char('+')) || t.startsWith(QLatin1Char('-')))
        i = 1;
    if (i >= t.size())
        throw AppError(QStringLiteral("Type mismatch"));
    for (int k = i; k < t.size(); ++k)
        if (!t.at(k).isDigit() || t.at(k).unicode() > '9')
            throw AppError(QStringLiteral("Type mismatch"));
    bool ok = false;
    const qlonglong v = t.toLongLong(&ok);
    if (!ok)
        throw AppError(QStringLiteral("Overflow"));
    return To_Int16(v);
}
