#include "prepared_file.h"
#include "globals.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

QString Prepared_Database_Source()
{
    const QString dir = QCoreApplication::applicationDirPath();
    for (const QString &candidate : {dir + QStringLiteral("/../share/strathmark/") + DB_FILE, dir + QLatin1Char('/') + DB_FILE}) {
        if (QFileInfo(candidate).isFile())
            return QFileInfo(candidate).canonicalFilePath();
    }
    return QString();
}

bool Lay_Prepared_Database(const QString &source)
{
    // Only a folder that has never held a database gets the empty one: a
    // backup or a copy in another case means the operator's data is there.
    const QDir folder(Data_Dir);
    for (const QString &name : folder.entryList(QDir::Files)) {
        if (name.compare(DB_FILE, Qt::CaseInsensitive) == 0 || name.compare(DB_BACKUP_FILE, Qt::CaseInsensitive) == 0
            || name.compare(DB_TEMP_FILE, Qt::CaseInsensitive) == 0)
            return false;
    }
    const QString target = Data_Dir + DB_FILE;
    if (source.isEmpty() || !QFile::copy(source, target))
        return false;
    // The installed copy is read-only; the operator's file must not be.
    QFile::setPermissions(target, QFile::permissions(target) | QFileDevice::WriteOwner | QFileDevice::ReadOwner);
    return true;
}
