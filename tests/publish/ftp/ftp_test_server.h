#pragma once
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

// A real FTP server (pyftpdlib) on a free port of 127.0.0.1, serving a fresh
// folder, started here and stopped when the object goes. With an entries
// folder it also answers the entries request over HTTP by copying the waiting
// file into the FTP root.
class Ftp_Test_Server
{
public:
    Ftp_Test_Server(const QString &user, const QString &password, const QString &entriesFolder = QString())
    {
        QDir().mkpath(root());
        QStringList args{STRATHMARK_FTP_SERVER_SCRIPT, "--root", root(), "--user", user, "--password", password,
                         "--log", m_dir.filePath("log.txt")};
        if (!entriesFolder.isEmpty())
            args << "--entries" << entriesFolder;
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(STRATHMARK_TEST_PYTHON, args);
        while (m_process.waitForReadyRead(10000) && !m_process.canReadLine()) {
        }
        const QStringList ready = QString::fromLatin1(m_process.readLine()).trimmed().split(' ');
        if (ready.size() == 3 && ready[0] == "ready") {
            m_ftpPort = ready[1].toInt();
            m_httpPort = ready[2].toInt();
        }
    }
    ~Ftp_Test_Server()
    {
        m_process.kill();
        m_process.waitForFinished(5000);
    }

    bool started() const { return m_ftpPort > 0; }
    int ftpPort() const { return m_ftpPort; }
    int httpPort() const { return m_httpPort; }
    QString root() const { return m_dir.filePath("root") + '/'; }
    QString file(const QString &name) const { return root() + name; }
    // Commands and requests the server has had, in order.
    QStringList log() const
    {
        QFile f(m_dir.filePath("log.txt"));
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()).split('\n', Qt::SkipEmptyParts)
                                           : QStringList();
    }

private:
    QTemporaryDir m_dir;
    QProcess m_process;
    int m_ftpPort = 0;
    int m_httpPort = 0;
};
