#include "ftp_test_server.h"

#include <QDir>
#include <QFile>

Ftp_Test_Server::Ftp_Test_Server(const QString &user, const QString &password, const QString &entriesFolder)
{
    QDir().mkpath(root());
    QStringList args{QStringLiteral(STRATHMARK_FTP_SERVER_SCRIPT), QStringLiteral("--root"), root(),
                     QStringLiteral("--user"), user, QStringLiteral("--password"), password,
                     QStringLiteral("--log"), m_dir.filePath(QStringLiteral("log.txt"))};
    if (!entriesFolder.isEmpty())
        args << QStringLiteral("--entries") << entriesFolder;
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(QStringLiteral(STRATHMARK_TEST_PYTHON), args);
    while (m_process.waitForReadyRead(10000)) {
        if (!m_process.canReadLine())
            continue;
        const QStringList ready = QString::fromLatin1(m_process.readLine()).split(QLatin1Char(' '));
        if (ready.size() == 3 && ready[0] == QLatin1String("ready")) {
            m_ftpPort = ready[1].toInt();
            m_httpPort = ready[2].trimmed().toInt();
        }
        break;
    }
}

Ftp_Test_Server::~Ftp_Test_Server()
{
    m_process.kill();
    m_process.waitForFinished(5000);
}

QString Ftp_Test_Server::root() const { return m_dir.filePath(QStringLiteral("root")) + QLatin1Char('/'); }

QStringList Ftp_Test_Server::log() const
{
    QFile f(m_dir.filePath(QStringLiteral("log.txt")));
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}
