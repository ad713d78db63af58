#include "site_source.h"

#include "core/codec.h"
#include "core/db.h"
#include "core/errors.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

Letter_Source::Letter_Source()
    : m_rng(static_cast<quint32>(QDateTime::currentMSecsSinceEpoch()))
{
}

QString Letter_Source::hidden()
{
    const QChar letter(QLatin1Char(static_cast<char>('a' + m_rng.bounded(26))));
    return QStringLiteral("<SPAN class=no>") + letter + QStringLiteral("</SPAN>");
}

QString Letter_Source::Hide_Blanks(const QString &name)
{
    const QString tag = hidden();
    QString out = name;
    return out.replace(QLatin1Char(' '), tag);
}

static QString Lookup(const QMap<int, QString> &list, const QVariant &id)
{
    bool ok = false;
    const int key = id.toInt(&ok);
    if (id.isNull() || !ok || !list.contains(key))
        throw AppError(QStringLiteral("Invalid procedure call or argument"));
    return list.value(key);
}

QString Site_Source::judge(const QVariant &id) const { return Lookup(judges, id); }
QString Site_Source::dance(const QVariant &id) const { return Lookup(dances, id); }

void Load_Site_Lists(Site_Source &src)
{
    src.judges.clear();
    src.dances.clear();
    RowSet j = src.conn.query(
        QStringLiteral("SELECT ifnull(j.forename,'') || ' ' || ifnull(j.surname,'') AS name, j.judge_id FROM judges j "
                       "WHERE j.competition_id = %1 ORDER BY 2").arg(src.compId));
    for (; !j.eof(); j.next())
        src.judges.insert(j.value("judge_id").toInt(), j.text("name"));
    RowSet d = src.conn.query(QStringLiteral("SELECT dance_id, dance FROM dances ORDER BY 1"));
    for (; !d.eof(); d.next())
        src.dances.insert(d.value("dance_id").toInt(), d.text("dance"));
}

QList<Site_Event> Load_Site_Events(Connection &conn, const QString &listSql)
{
    QList<Site_Event> out;
    RowSet r = conn.query(listSql);
    for (; !r.eof(); r.next())
        out.append({Cell(r.value(0)), Cell(r.value(1)), Cell(r.value(2))});
    return out;
}

QString Cell(const QVariant &v)
{
    if (v.isNull())
        return QString();
    if (v.typeId() == QMetaType::Double) {
        const double d = v.toDouble();
        if (d == static_cast<double>(static_cast<qint64>(d)))
            return QString::number(static_cast<qint64>(d));
    }
    return v.toString();
}

void Write_Page(const QString &path, const QString &text)
{
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw AppError(QStringLiteral("Path not found"));
    const QByteArray bytes = To_1252(text);
    if (f.write(bytes) != bytes.size())
        throw AppError(QStringLiteral("Device I/O error"));
}

void Make_Folder(const QString &path)
{
    if (QFileInfo(path).isDir())
        return;
    if (!QDir().mkdir(path))
        throw AppError(QStringLiteral("Path not found"));
}

QString Folder_In(const QString &base, const QString &name)
{
    const QStringList existing = QDir(base).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &e : existing)
        if (e.compare(name, Qt::CaseInsensitive) == 0)
            return base + e + QLatin1Char('/');
    return base + name + QLatin1Char('/');
}

bool Build_Page(const std::function<void()> &work)
{
    try {
        work();
        return true;
    } catch (const std::exception &) {
        return false;
    }
}
