#include "site_upload.h"

#include "core/globals.h"
#include "ftp/cftp.h"
#include "ftp/cftp_folder.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <memory>

namespace {

QSettings *Open_Store()
{
    auto *s = new QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Strathmark"), App_Title);
    s->beginGroup(QStringLiteral("Upload"));
    return s;
}

} // namespace

Upload_Target Load_Upload_Target()
{
    std::unique_ptr<QSettings> s(Open_Store());
    return {s->value(QStringLiteral("Server")).toString(), s->value(QStringLiteral("User")).toString(),
            s->value(QStringLiteral("Folder")).toString()};
}

void Save_Upload_Target(const Upload_Target &target)
{
    std::unique_ptr<QSettings> s(Open_Store());
    s->setValue(QStringLiteral("Server"), target.server);
    s->setValue(QStringLiteral("User"), target.user);
    s->setValue(QStringLiteral("Folder"), target.folder);
    s->sync();
}

QString Remote_Site_Folder(const Upload_Target &target, const QString &siteFolder)
{
    QString folder = target.folder.trimmed();
    if (!folder.startsWith(QLatin1Char('/')))
        folder.prepend(QLatin1Char('/'));
    if (!folder.endsWith(QLatin1Char('/')))
        folder += QLatin1Char('/');
    return folder + QFileInfo(QDir::cleanPath(siteFolder)).fileName();
}

QString Upload_Site(const Upload_Target &target, const QString &password, const QString &siteFolder,
                    const std::function<void(qint64, qint64)> &progress)
{
    const QString remote = Remote_Site_Folder(target, siteFolder);
    if (!QFileInfo(siteFolder).isDir())
        return QStringLiteral("Sending the results site: the folder %1 is not there. Create the pages first.")
            .arg(QDir::toNativeSeparators(siteFolder));
    QString host = target.server.trimmed();
    cFTP ftp;
    // "host:port" for a server that does not listen on the usual port.
    const int colon = host.lastIndexOf(QLatin1Char(':'));
    bool numeric = false;
    const int port = colon > 0 ? host.mid(colon + 1).toInt(&numeric) : 0;
    if (numeric && port > 0 && port < 65536) {
        ftp.SetPort(port);
        host.truncate(colon);
    }
    // Passive gets through the hall's router; binary keeps the pages byte for byte.
    ftp.SetModePassive();
    ftp.SetTransferBinary();
    if (!ftp.OpenConnection(host, target.user, password))
        return QStringLiteral("Connecting to %1 as %2:\n").arg(target.server.trimmed(), target.user)
               + ftp.GetLastErrorMessage();
    const bool sent = Upload_Folder(ftp, siteFolder, remote, progress);
    const QString error = ftp.GetLastErrorMessage();
    ftp.CloseConnection();
    if (!sent)
        return QStringLiteral("Sending %1 to %2 on %3:\n").arg(QDir::toNativeSeparators(siteFolder), remote,
                                                               target.server.trimmed())
               + error;
    return QString();
}
