#pragma once
#include <QObject>
#include <QString>
#include <functional>

typedef void CURL;
class QFile;

// A small FTP client holding one session and one connection to one server.
// Every operation gives false (or a negative size) on failure and keeps a text
// for the caller to fetch with GetLastErrorMessage; it never shows a box.
// Remote names are taken as given: a name without a leading "/" is in the
// current directory.
class cFTP : public QObject
{
    Q_OBJECT
public:
    static constexpr int Block_Size = 255;     // bytes per block of FTPUploadFile/FTPDownloadFile
    static constexpr qint64 Not_Found = -1;     // GetFTPFileSize: no such file
    static constexpr qint64 Find_Failed = -2;   // GetFTPFileSize: the search itself failed
    static constexpr int Transfer_ASCII = 1;
    static constexpr int Transfer_Binary = 2;
    static constexpr int Mode_Active = 0;
    static constexpr int Mode_Passive = 0x8000000;

    explicit cFTP(QObject *parent = nullptr);
    ~cFTP() override;

    bool OpenConnection(const QString &host, const QString &user, const QString &password);
    void CloseConnection();
    bool IsConnected() const { return m_connected; }

    bool SimpleFTPPutFile(const QString &local, const QString &remote);
    bool SimpleFTPGetFile(const QString &local, const QString &remote);
    bool FTPUploadFile(const QString &local, const QString &remote);
    bool FTPDownloadFile(const QString &local, const QString &remote);
    bool RenameFTPFile(const QString &oldName, const QString &newName);
    bool DeleteFTPFile(const QString &remote);
    bool CreateFTPDirectory(const QString &remote);
    bool RemoveFTPDirectory(const QString &remote);
    QString GetFTPDirectory();
    bool SetFTPDirectory(const QString &remote);
    // Size of a remote file; Not_Found when there is none, Find_Failed when
    // the search could not be made.
    qint64 GetFTPFileSize(const QString &remote);

    void SetTransferASCII() { m_transferType = Transfer_ASCII; }
    void SetTransferBinary() { m_transferType = Transfer_Binary; }
    int TransferType() const { return m_transferType; }
    // Taken at the next OpenConnection.
    void SetModeActive() { m_modeFlags = Mode_Active; }
    void SetModePassive() { m_modeFlags = Mode_Passive; }
    int ModeFlags() const { return m_modeFlags; }

    QString GetLastErrorMessage() const { return m_lastError; }

    // Used by the block transfers: one whole block moved, so screen events
    // run, the count grows by a block and progress is told.
    void Block_Done(qint64 &done, qint64 total);

    // The server's port, 21 unless set (tests run their own server).
    void SetPort(int port) { m_port = port; }
    int Port() const { return m_port; }

signals:
    // Bytes done and bytes in all of the block transfer under way.
    void Progress(qint32 done, qint32 total);

private:
    static size_t On_Debug(CURL *, int type, char *data, size_t size, void *self);

    // Readies the session's handle for one request with what all requests share;
    // false when there is no connection.
    bool Begin();
    // Runs the request; gives libcurl's code.
    int Run();
    bool Perform(const QString &step) { return Record_Unless_Ok(step, Run()); }
    bool Record_Unless_Ok(const QString &step, int code);
    void Record_Error(const QString &step, int code);
    // A step tried with no connection.
    void Not_Connected(const QString &step);
    // The server's own reply when its last answer to the request was a refusal.
    QString Server_Error_Reply() const;
    QString Absolute(const QString &remote) const;
    QByteArray Url(const QString &absolutePath) const;
    bool Quote(const QString &step, const QStringList &commands);
    // A local file that cannot be opened, told in the same form.
    void Record_Local(const QString &step, int code, const QString &path, const QString &why);
    void Feed_Reply(const QByteArray &text);
    // The start shared by the block transfers: names trimmed and checked, the
    // local file opened, the request readied on the remote name. total is the
    // local size for an upload, the server's size for a download.
    bool Start_Blocks(bool upload, const QString &local, const QString &remote, QFile &file, qint64 &total);

    CURL *m_curl = nullptr;
    bool m_connected = false;
    QString m_host;
    QString m_user;
    QString m_password;
    int m_port = 21;
    int m_transferType = Transfer_ASCII;
    int m_modeFlags = Mode_Active;
    int m_sessionMode = Mode_Active;
    QString m_cwd = QStringLiteral("/");
    QString m_lastError;
    QStringList m_replies;      // whole replies of the server during the request
    QString m_partialReply;
    QString m_lineBuffer;
    char m_errorBuffer[256] = {};
};
