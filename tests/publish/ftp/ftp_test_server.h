#pragma once
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

// A real FTP server (pyftpdlib) on a free port of 127.0.0.1, serving a fresh
// folder, started here and stopped when the object goes. With an entries
// folder it also answers the entries request over HTTP by copying the waiting
// file into the FTP root.
class Ftp_Test_Server
{
public:
    Ftp_Test_Server(const QString &user, const QString &password, const QString &entriesFolder = QString());
    ~Ftp_Test_Server();

    bool started() const { return m_ftpPort > 0; }
    int ftpPort() const { return m_ftpPort; }
    int httpPort() const { return m_httpPort; }
    QString root() const;                       // ends in '/'
    QString file(const QString &name) const { return root() + name; }
    // Commands and requests the server has had, in order.
    QStringList log() const;

private:
    QTemporaryDir m_dir;
    QProcess m_process;
    int m_ftpPort = 0;
    int m_httpPort = 0;
};
