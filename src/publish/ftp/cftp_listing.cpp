#include "cftp_listing.h"

#include <QRegularExpression>

qint64 Find_In_Listing(const QString &listing, const QString &pattern)
{
    static const QRegularExpression unixLine(
        QStringLiteral("^[-dlcbps][-rwxsStTlL]{9}\\S*\\s+\\d+\\s+\\S+\\s+\\S+\\s+(\\d+)\\s+\\S+\\s+\\S+\\s+\\S+ (.+)$"));
    static const QRegularExpression dosLine(
        QStringLiteral("^\\d\\d-\\d\\d-\\d\\d+\\s+\\d\\d:\\d\\d[AP]M\\s+(\\d+|<DIR>)\\s+(.+)$"));
    const QRegularExpression match(QRegularExpression::wildcardToRegularExpression(
                                       pattern),
                                   QRegularExpression::CaseInsensitiveOption);
    const QStringList lines = listing.split(QLatin1Char('\n'));
    for (QString line : lines) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        QRegularExpressionMatch m = unixLine.match(line);
        if (!m.hasMatch())
            m = dosLine.match(line);
        if (!m.hasMatch())
            continue;
        QString name = m.captured(2);
        const int arrow = name.indexOf(QLatin1String(" -> "));   // a link names its target
        if (line.startsWith(QLatin1Char('l')) && arrow > 0)
            name.truncate(arrow);
        if (match.match(name).hasMatch())
            return m.captured(1).toLongLong();   // "<DIR>" reads as 0
    }
    return -1;
}
