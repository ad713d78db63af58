#include "cftp.h"

#include <QCoreApplication>
#include <QDir>
#include <QUrl>
#include <curl/curl.h>

namespace {

// libcurl is set up once for the process, before the first handle.
void Global_Init()
{
    static const bool done = [] { return curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK; }();
    (void)done;
}

size_t Discard(char *, size_t size, size_t count, void *) { return size * count; }

} // namespace

cFTP::cFTP(QObject *parent)
    : QObject(parent)
{
}

cFTP::~cFTP() { CloseConnection(); }

size_t cFTP::On_Debug(CURL *, int type, char *data, size_t size, void *self)
{
    auto *ftp = static_cast<cFTP *>(self);
    if (type == CURLINFO_HEADER_IN)
        ftp->Feed_Reply(QByteArray(data, static_cast<qsizetype>(size)));
    return 0;
}

// Replies come in pieces; a reply ends with its line "ddd text" (a long
// reply has "ddd-" lines before it).
void cFTP::Feed_Reply(const QByteArray &text)
{
    m_lineBuffer += QString::fromLatin1(text);
    int eol;
    while ((eol = m_lineBuffer.indexOf(QLatin1Char('\n'))) >= 0) {
        const QString line = m_lineBuffer.left(eol + 1);
        m_lineBuffer.remove(0, eol + 1);
        m_partialReply += line;
        if (line.size() >= 4 && line[0].isDigit() && line[1].isDigit() && line[2].isDigit()
            && line[3] == QLatin1Char(' ')) {
            m_replies.append(m_partialReply);
            m_partialReply.clear();
        }
    }
}

QString cFTP::Server_Error_Reply() const
{
    for (int i = m_replies.size() - 1; i >= 0; --i) {
        const QString &reply = m_replies[i];
        if (reply.startsWith(QLatin1String("221")))
            continue;   // the goodbye of a connection closed after the fault
        if (reply.startsWith(QLatin1Char('4')) || reply.startsWith(QLatin1Char('5')))
            return reply.trimmed();
        return QString();
    }
    return QString();
}

void cFTP::Record_Error(const QString &step, int code)
{
    // A refusal by the server is told in the server's own words.
    const QString reply = Server_Error_Reply();
    if (!reply.isEmpty()) {
        m_lastError = reply;
        return;
    }
    QString message = QString::fromLocal8Bit(m_errorBuffer);
    if (message.isEmpty())
        message = QString::fromLatin1(curl_easy_strerror(static_cast<CURLcode>(code)));
    m_lastError = step + QStringLiteral(" error code: ") + QString::number(code) + QStringLiteral(" Message: ")
                  + message;
}

void cFTP::Not_Connected(const QString &step)
{
    // The failed connection's own text says more than any later step could.
    if (m_lastError.isEmpty())
        Record_Error(step, CURLE_FAILED_INIT);
}

bool cFTP::Record_Unless_Ok(const QString &step, int code)
{
    if (code == CURLE_OK)
        return true;
    Record_Error(step, code);
    return false;
}

bool cFTP::OpenConnection(const QString &host, const QString &user, const QString &password)
{
    if (m_connected || m_curl)
        CloseConnection();
    Global_Init();
    m_curl = curl_easy_init();
    if (!m_curl)
        Record_Error(QStringLiteral("InternetOpen"), CURLE_FAILED_INIT);
    m_host = host.trimmed();
    m_user = user;
    m_password = password;
    m_sessionMode = m_modeFlags;
    m_connected = true;
    if (!m_curl || !Begin()) {
        m_connected = false;
        if (m_curl)
            Record_Error(QStringLiteral("InternetConnect"), CURLE_FAILED_INIT);
        return false;
    }
    // Log in now, so that a wrong host or password is told here.
    curl_easy_setopt(m_curl, CURLOPT_URL, Url(QStringLiteral("/")).constData());
    curl_easy_setopt(m_curl, CURLOPT_NOBODY, 1L);
    if (!Perform(QStringLiteral("InternetConnect"))) {
        m_connected = false;
        curl_easy_cleanup(m_curl);
        m_curl = nullptr;
        return false;
    }
    char *entry = nullptr;
    curl_easy_getinfo(m_curl, CURLINFO_FTP_ENTRY_PATH, &entry);
    m_cwd = entry && *entry ? QString::fromUtf8(entry) : QStringLiteral("/");
    return true;
}

void cFTP::CloseConnection()
{
    if (m_curl)
        curl_easy_cleanup(m_curl);   // says QUIT on a live connection
    m_curl = nullptr;
    m_connected = false;
}

bool cFTP::Begin()
{
    if (!m_curl || !m_connected)
        return false;
    curl_easy_reset(m_curl);   // keeps the live connection
    m_replies.clear();
    m_partialReply.clear();
    m_lineBuffer.clear();
    m_errorBuffer[0] = 0;
    curl_easy_setopt(m_curl, CURLOPT_ERRORBUFFER, m_errorBuffer);
    curl_easy_setopt(m_curl, CURLOPT_USERAGENT, "FTP Client");
    curl_easy_setopt(m_curl, CURLOPT_USERNAME, m_user.toUtf8().constData());
    curl_easy_setopt(m_curl, CURLOPT_PASSWORD, m_password.toUtf8().constData());
    curl_easy_setopt(m_curl, CURLOPT_PORT, static_cast<long>(m_port));
    curl_easy_setopt(m_curl, CURLOPT_CONNECTTIMEOUT, 30L);
    curl_easy_setopt(m_curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(m_curl, CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_SINGLECWD));
    curl_easy_setopt(m_curl, CURLOPT_FTPPORT, m_sessionMode == Mode_Active ? "-" : nullptr);
    curl_easy_setopt(m_curl, CURLOPT_TRANSFERTEXT, m_transferType == Transfer_ASCII ? 1L : 0L);
    curl_easy_setopt(m_curl, CURLOPT_WRITEFUNCTION, Discard);
    curl_easy_setopt(m_curl, CURLOPT_VERBOSE, 1L);
    curl_easy_setopt(m_curl, CURLOPT_DEBUGFUNCTION, On_Debug);
    curl_easy_setopt(m_curl, CURLOPT_DEBUGDATA, this);
    return true;
}

int cFTP::Run()
{
    if (!m_curl)
        return CURLE_FAILED_INIT;
    return curl_easy_perform(m_curl);
}

QString cFTP::Absolute(const QString &remote) const
{
    if (remote.startsWith(QLatin1Char('/')))
        return remote;
    QString base = m_cwd;
    if (!base.endsWith(QLatin1Char('/')))
        base += QLatin1Char('/');
    return base + remote;
}

QByteArray cFTP::Url(const QString &absolutePath) const
{
    // "%2F" makes the path absolute rather than under the login folder.
    QString path = absolutePath;
    while (path.startsWith(QLatin1Char('/')))
        path.remove(0, 1);
    return "ftp://" + m_host.toUtf8() + "/%2F" + QUrl::toPercentEncoding(path, "/");
}

bool cFTP::Quote(const QString &step, const QStringList &commands)
{
    if (!Begin()) {
        Not_Connected(step);
        return false;
    }
    curl_slist *list = nullptr;
    for (const QString &c : commands)
        list = curl_slist_append(list, c.toUtf8().constData());
    curl_easy_setopt(m_curl, CURLOPT_URL, Url(QStringLiteral("/")).constData());
    curl_easy_setopt(m_curl, CURLOPT_NOBODY, 1L);
    curl_easy_setopt(m_curl, CURLOPT_QUOTE, list);
    const bool ok = Perform(step);
    curl_easy_setopt(m_curl, CURLOPT_QUOTE, nullptr);
    curl_slist_free_all(list);
    return ok;
}

bool cFTP::RenameFTPFile(const QString &oldName, const QString &newName)
{
    return Quote(QStringLiteral("RenameFTPFile"),
                 {QStringLiteral("RNFR ") + Absolute(oldName), QStringLiteral("RNTO ") + Absolute(newName)});
}

bool cFTP::DeleteFTPFile(const QString &remote)
{
    return Quote(QStringLiteral("DeleteFTPFile"), {QStringLiteral("DELE ") + Absolute(remote)});
}

bool cFTP::CreateFTPDirectory(const QString &remote)
{
    return Quote(QStringLiteral("CreateFTPDirectory"), {QStringLiteral("MKD ") + Absolute(remote)});
}

bool cFTP::RemoveFTPDirectory(const QString &remote)
{
    return Quote(QStringLiteral("RemoveFTPDirectory"), {QStringLiteral("RMD ") + Absolute(remote)});
}

QString cFTP::GetFTPDirectory()
{
    if (!m_connected) {
        Not_Connected(QStringLiteral("FtpGetCurrentDirectory"));
        return QString();
    }
    return m_cwd;
}

bool cFTP::SetFTPDirectory(const QString &remote)
{
    const QString step = QStringLiteral("FtpSetCurrentDirectory");
    if (!Begin()) {
        Not_Connected(step);
        return false;
    }
    // The server is asked to go there; the folder is kept only when it agrees.
    QString target = QDir::cleanPath(Absolute(remote));
    QByteArray url = Url(target);
    if (!url.endsWith('/'))
        url += '/';
    curl_easy_setopt(m_curl, CURLOPT_URL, url.constData());
    curl_easy_setopt(m_curl, CURLOPT_NOBODY, 1L);
    if (!Perform(step))
        return false;
    m_cwd = target;
    return true;
}

void cFTP::Block_Done(qint64 &done, qint64 total)
{
    QCoreApplication::processEvents();
    done += Block_Size;
    emit Progress(static_cast<qint32>(done), static_cast<qint32>(total));
}
