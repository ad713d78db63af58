#include "cftp_folder.h"
#include "cftp.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

namespace {

QString Join(const QString &folder, const QString &name)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

// A folder that is there already is as good as one made now.
bool Ensure_Folder(cFTP &ftp, const QString &remote)
{
    if (ftp.CreateFTPDirectory(remote))
        return true;
    const QString back = ftp.GetFTPDirectory();
    if (ftp.SetFTPDirectory(remote))
        return ftp.SetFTPDirectory(back);
    return false;
}

} // namespace

bool Upload_Folder(cFTP &ftp, const QString &localFolder, const QString &remoteFolder,
                   const std::function<void(qint64, qint64)> &progress)
{
    const QDir root(localFolder);
    if (!root.exists())
        return false;
    QStringList folders;
    QList<QFileInfo> files;
    qint64 total = 0;
    QDirIterator it(root.absolutePath(), QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QFileInfo info(it.next());
        const QString relative = root.relativeFilePath(info.absoluteFilePath());
        if (info.isDir()) {
            folders << relative;
        } else {
            files << info;
            total += info.size();
        }
    }
    folders.sort();   // parents before their children
    // The remote folder's own parents first, so that "live/results" can be new as a whole.
    const QStringList parts = remoteFolder.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    QString path = remoteFolder.startsWith(QLatin1Char('/')) ? QStringLiteral("/") : QString();
    for (const QString &part : parts) {
        path += part;
        if (!Ensure_Folder(ftp, path))
            return false;
        path += QLatin1Char('/');
    }
    for (const QString &f : folders)
        if (!Ensure_Folder(ftp, Join(remoteFolder, f)))
            return false;

    qint64 before = 0;
    QMetaObject::Connection link;
    if (progress)
        link = QObject::connect(&ftp, &cFTP::Progress, [&](qint32 done, qint32) { progress(before + done, total); });
    bool ok = true;
    for (const QFileInfo &file : files) {
        if (!ftp.FTPUploadFile(file.absoluteFilePath(), Join(remoteFolder, root.relativeFilePath(file.absoluteFilePath())))) {
            ok = false;
            break;
        }
        before += file.size();
    }
    QObject::disconnect(link);
    return ok;
}
