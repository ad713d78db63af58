#include "entries_file.h"

#include "core/codec.h"
#include "core/routines.h"

namespace Entries_File {

Contents Read(const QByteArray &bytes)
{
    const QStringList all = (Decode_Text(bytes) + QStringLiteral("\r\n")).split(QLatin1Char('\n'));
    Contents c;
    c.highestIndex = static_cast<int>(all.size()) - 1;
    for (int i = 1; i < c.highestIndex - 1; ++i)
        c.lines.append(all[i].split(QLatin1Char('\t')));
    return c;
}

QStringList Headings()
{
    return {QStringLiteral("Firstname"), QStringLiteral("Lastname"), QStringLiteral("Tel"), QStringLiteral("Age"),
            QStringLiteral("Teacher"), QStringLiteral("Addr1"), QStringLiteral("Addr2"), QStringLiteral("City"),
            QStringLiteral("State"), QStringLiteral("Zip"), QStringLiteral("Country"), QStringLiteral("Events"),
            QStringLiteral("Fee"), QStringLiteral("Txn")};
}

int Column_Width(int column)
{
    switch (column) {
    case Col_Age: return 500;
    case Col_Zip: return 1000;
    case Col_Country: return 750;
    case Col_Events: return 1200;
    case Col_Fee: return 600;
    case Col_Txn: return 13;   // all but hidden
    default: return 0;
    }
}

namespace {

QString Unquoted(const QString &text) { return QString(text).remove(QLatin1Char('\'')); }

QString Capitalised(const QString &text)
{
    QString t = Unquoted(text);
    if (!t.isEmpty())
        t[0] = t[0].toUpper();
    return t;
}

} // namespace

QStringList Preview_Row(const QStringList &f)
{
    static constexpr Field Order[Columns] = {Forename, Surname, Tel,   Age,     Teacher, Addr1, Addr2,
                                             City,     State,   Zip,   Country, Events,  Fee,   Txn};
    QStringList row;
    for (int col = 0; col < Columns; ++col)
        row << (col <= Col_Lastname ? Capitalised(f.value(Order[col])) : Unquoted(f.value(Order[col])));
    return row;
}

QString Check_Sql(short competitionId, const QStringList &f)
{
    // The surname is checked with its quotes made blanks.
    const QString surname = QString(f.value(Surname)).replace(QLatin1Char('\''), QLatin1Char(' '));
    return QStringLiteral("SELECT count(*) AS num_reg FROM competitors WHERE competition_id = ")
           + QString::number(competitionId) + QStringLiteral(" AND ((txnid = '") + Sql_Quote(f.value(Txn))
           + QStringLiteral("') OR (lcase(forename) = lcase('") + Sql_Quote(f.value(Forename))
           + QStringLiteral("') AND lcase(surname) = lcase('") + Sql_Quote(surname) + QStringLiteral("')))");
}

} // namespace Entries_File
