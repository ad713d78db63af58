#include "compare_run.h"

#include "compare_file.h"

#include "core/codec.h"
#include "core/db.h"
#include "core/globals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

const QString CrLf = QStringLiteral("\r\n");
constexpr int Most_Own_Lines = 1001;

// Fills a side from a line; false when the line cannot be read.
bool Read_Side(const QString &line, int type, const QHash<int, QString> &danceNames, Compare_Side &side)
{
    const QStringList f = line.split(QLatin1Char('\t'));
    if (f.size() < (type == 2 ? 5 : 4))
        return false;
    bool ok = false;
    const int dance = f[3].toInt(&ok);
    if (!ok || !danceNames.contains(dance))
        return false;
    side.dance = danceNames.value(dance);
    side.number = f[1];
    side.place = f[2];
    if (type == 2)
        side.judge = f[4];
    return true;
}

Compare_Outcome Failed()
{
    Compare_Outcome out;
    out.kind = Compare_Outcome::Failure;
    return out;
}

// The folder itself or, on a case-sensitive disk, one that differs only in case.
QString Find_In_Folder(const QString &folder, const QString &name)
{
    QFileInfo direct(QDir(folder).filePath(name));
    if (direct.isFile())
        return direct.filePath();
    QDir dir(folder);
    if (!dir.exists()) {
        QFileInfo fi(QDir::cleanPath(folder));   // a trailing "/" would leave no name
        QDir parent = fi.dir();
        const QStringList entries = parent.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QString &e : entries)
            if (e.compare(fi.fileName(), Qt::CaseInsensitive) == 0) {
                QFileInfo candidate(QDir(parent.filePath(e)).filePath(name));
                if (candidate.isFile())
                    return candidate.filePath();
            }
    }
    return QString();
}

} // namespace

Compare_Outcome Compare_Results(const QStringList &thisList, const QStringList &remoteList,
                                const QHash<int, QString> &danceNames)
{
    const int thisLimit = thisList.size() - 1;
    const int remoteLimit = remoteList.size() - 1;
    int i = 0;
    int j = 0;
    while (i < thisLimit && j < remoteLimit && thisList[i] == remoteList[j]) {
        ++i;
        ++j;
    }
    Compare_Outcome out;
    if (i < thisLimit && j < remoteLimit) {
        out.kind = Compare_Outcome::Differ;
        const QString kind = thisList[i].section(QLatin1Char('\t'), 0, 0);
        out.lineType = kind == QLatin1String("1") ? 1 : kind == QLatin1String("2") ? 2 : 0;
        if (out.lineType != 0
            && (!Read_Side(thisList[i], out.lineType, danceNames, out.here)
                || !Read_Side(remoteList[j], out.lineType, danceNames, out.remote)))
            return Failed();
    } else if (i < thisLimit) {
        out.kind = Compare_Outcome::Differ;
        out.lineType = 1;
        if (!Read_Side(thisList[i], 1, danceNames, out.here))
            return Failed();
    } else if (j < remoteLimit) {
        out.kind = Compare_Outcome::Differ;
        out.lineType = 1;
        if (!Read_Side(remoteList[j], 1, danceNames, out.remote))
            return Failed();
    }
    return out;
}

QStringList Split_Compare_Text(const QByteArray &bytes)
{
    return Decode_Text(bytes).split(CrLf);
}

Compare_Outcome Check_Results(Connection &conn, const QString &eventName, const QString &mode)
{
    const QString path = Find_In_Folder(Opt_Check_Dir, eventName + QStringLiteral(".cmp"));
    if (path.isEmpty()) {
        Compare_Outcome out;
        out.kind = Compare_Outcome::No_File;
        return out;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Failed();
    const QStringList remote = Split_Compare_Text(file.readAll());

    QHash<int, QString> dances;
    RowSet rs = conn.query(QStringLiteral("SELECT dance_id, dance FROM dances ORDER BY 1"));
    for (; !rs.eof(); rs.next())
        dances.insert(rs.value(0).toInt(), rs.text(QStringLiteral("dance")));

    QStringList own = Compare_Lines(conn, mode == QLatin1String("Champ") ? Compare_Three_Judge : 1);
    if (own.size() > Most_Own_Lines)
        return Failed();
    own << QString();
    return Compare_Results(own, remote, dances);
}

QString Check_Text(const QString &heading, const Compare_Outcome &outcome, bool remote)
{
    const bool judged = outcome.kind == Compare_Outcome::Differ && outcome.lineType == 2;
    const Compare_Side side = judged ? (remote ? outcome.remote : outcome.here) : Compare_Side();
    auto value = [judged](const QString &v) { return judged ? v + CrLf : QString(); };
    return heading + CrLf + QStringLiteral("Dance: ") + value(side.dance) + QStringLiteral("Judge: ")
           + value(side.judge) + QStringLiteral("No: ") + value(side.number) + QStringLiteral("Place: ")
           + value(side.place);
}
