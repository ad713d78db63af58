#include "file_contents.h"

#include <QLocale>

namespace {

QString Counted(int n, const char *what)
{
    return QLocale(QLocale::English, QLocale::UnitedKingdom).toString(n) + QLatin1Char(' ') + QLatin1String(what)
           + (n == 1 ? QString() : QStringLiteral("s"));
}

} // namespace

QString File_Contents::summary(const QString &done) const
{
    if (name.isEmpty() && date.isEmpty())
        return QStringLiteral("The file held nothing to import.");
    return name + QLatin1Char(' ') + date + QStringLiteral(": ") + Counted(competitors, "competitor")
           + QStringLiteral(", ") + Counted(events, "event") + QStringLiteral(", ") + Counted(marks, "mark")
           + QLatin1Char(' ') + done + QLatin1Char('.');
}
