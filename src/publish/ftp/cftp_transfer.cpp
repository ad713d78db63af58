#include "cftp.h"
#include "cftp_listing.h"

#include <QBuffer>
#include <QFile>
#include <algorithm>
#include <QSaveFile>
#include <curl/curl.h>

namespace {

// A block transfer in hand: whole blocks of cFTP::Block_Size, then the rest.
struct Blocks
{
    Blocks(cFTP *f, QIODevice *d) : ftp(f), file(d) {}
    cFTP *ftp = nullptr;
    QIODevice *file = nullptr;
    qint64 total = 0;
    qint64 moved = 0;        // bytes through the callbacks
    qint64 done = 0;         // running count of whole blocks
    QByteArray pending;      // downloaded bytes not yet a whole block
    bool started = false;
    bool failed = false;
    bool inShortBlock() const { return done + cFTP::Block_Size > total; }
};

size_t Read_Block(char *buffer, size_t size, size_t count, void *data)
{
    auto *b = static_cast<Blocks *>(data);
    const qint64 room = static_cast<qint64>(size * count);
    const qint64 len = std::min<qint64>({room, qint64(cFTP::Block_Size), b->total - b->moved});
    if (len <= 0)
        return 0;
    b->started = true;
    const qint64 got = b->file->read(buffer, len);
    if (got != len) {
        b->failed = true;
        return CURL_READFUNC_ABORT;
    }
    b->moved += got;
    if (got == cFTP::Block_Size)
        b->ftp->Block_Done(b->done, b->total);
    return static_cast<size_t>(got);
}

size_t Write_Blocks(char *data, size_t size, size_t count, void *user)
{
    auto *b = static_cast<Blocks *>(user);
    const size_t len = size * count;
    b->started = true;
    b->pending.append(data, static_cast<qsizetype>(len));
    while (b->pending.size() >= cFTP::Block_Size && !b->inShortBlock()) {
        if (b->file->write(b->pending.constData(), cFTP::Block_Size) != cFTP::Block_Size) {
            b->failed = true;
            return 0;
        }
        b->pending.remove(0, cFTP::Block_Size);
        b->ftp->Block_Done(b->done, b->total);
    }
    return len;
}

size_t Read_Whole(char *buffer, size_t size, size_t count, void *data)
{
    const qint64 got = static_cast<QIODevice *>(data)->read(buffer, static_cast<qint64>(size * count));
    return got < 0 ? CURL_READFUNC_ABORT : static_cast<size_t>(got);
}

size_t Write_Whole(char *data, size_t size, size_t count, void *user)
{
    const qint64 len = static_cast<qint64>(size * count);
    return static_cast<QIODevice *>(user)->write(data, len) == len ? static_cast<size_t>(len) : 0;
}

QString Open_Step(bool upload)
{
    return upload ? QStringLiteral("FtpOpenFile:PutFile") : QStringLiteral("FtpOpenFile:GetFile");
}

// The step a failed block transfer names: the opening, a whole block, or the short last one.
QString Failed_Step(const Blocks &b, bool upload)
{
    const QString block = upload ? QStringLiteral("InternetWriteFile") : QStringLiteral("InternetReadFile");
    return !b.started ? Open_Step(upload) : b.inShortBlock() ? block + QLatin1Char('2') : block;
}

} // namespace

void cFTP::Record_Local(const QString &step, int code, const QString &path, const QString &why)
{
    m_lastError = step + QStringLiteral(" error code: ") + QString::number(code) + QStringLiteral(" Message: ") + path
                  + QStringLiteral(": ") + why;
}

bool cFTP::SimpleFTPPutFile(const QString &local, const QString &remote)
{
    const QString step = QStringLiteral("SimpleFtpPutFile");
    QFile file(local);
    if (!file.open(QIODevice::ReadOnly)) {
        Record_Local(step, CURLE_READ_ERROR, local, file.errorString());
        return false;
    }
    if (!Begin()) {
        Not_Connected(step);
        return false;
    }
    curl_easy_setopt(m_curl, CURLOPT_URL, Url(Absolute(remote)).constData());
    curl_easy_setopt(m_curl, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(m_curl, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(file.size()));
    curl_easy_setopt(m_curl, CURLOPT_READFUNCTION, Read_Whole);
    curl_easy_setopt(m_curl, CURLOPT_READDATA, static_cast<QIODevice *>(&file));
    return Perform(step);
}

bool cFTP::SimpleFTPGetFile(const QString &local, const QString &remote)
{
    const QString step = QStringLiteral("SimpleFtpGetFile");
    // The target is replaced only when the whole file has come.
    QSaveFile file(local);
    if (!file.open(QIODevice::WriteOnly)) {
        Record_Local(step, CURLE_WRITE_ERROR, local, file.errorString());
        return false;
    }
    if (!Begin()) {
        Not_Connected(step);
        return false;
    }
    curl_easy_setopt(m_curl, CURLOPT_URL, Url(Absolute(remote)).constData());
    curl_easy_setopt(m_curl, CURLOPT_WRITEFUNCTION, Write_Whole);
    curl_easy_setopt(m_curl, CURLOPT_WRITEDATA, static_cast<QIODevice *>(&file));
    if (!Perform(step))
        return false;
    if (!file.commit()) {
        Record_Local(step, CURLE_WRITE_ERROR, local, file.errorString());
        return false;
    }
    return true;
}

bool cFTP::Start_Blocks(bool upload, const QString &local, const QString &remote, QFile &file, qint64 &total)
{
    const QString localName = local.trimmed();
    const QString remoteName = remote.trimmed();
    if (localName.isEmpty() || remoteName.isEmpty())
        return false;
    // A missing remote file is found before any local file is touched.
    if (!upload && (total = GetFTPFileSize(remoteName)) <= 0)
        return false;
    const QString step = Open_Step(upload);
    file.setFileName(localName);
    // A download is written from its first byte and never cut: a shorter file leaves the old tail.
    if (!file.open(upload ? QIODevice::ReadOnly : QIODevice::ReadWrite)) {
        Record_Local(step, upload ? CURLE_READ_ERROR : CURLE_WRITE_ERROR, localName, file.errorString());
        return false;
    }
    if (!Begin()) {
        Not_Connected(step);
        return false;
    }
    if (upload)
        total = file.size();
    curl_easy_setopt(m_curl, CURLOPT_URL, Url(Absolute(remoteName)).constData());
    return true;
}

bool cFTP::FTPUploadFile(const QString &local, const QString &remote)
{
    QFile file;
    Blocks b{this, &file};
    if (!Start_Blocks(true, local, remote, file, b.total))
        return false;
    curl_easy_setopt(m_curl, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(m_curl, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(b.total));
    curl_easy_setopt(m_curl, CURLOPT_READFUNCTION, Read_Block);
    curl_easy_setopt(m_curl, CURLOPT_READDATA, &b);
    const int code = Run();
    if (code != CURLE_OK) {
        Record_Error(Failed_Step(b, true), code);
        return false;
    }
    emit Progress(static_cast<qint32>(b.total), static_cast<qint32>(b.total));
    return true;
}

bool cFTP::FTPDownloadFile(const QString &local, const QString &remote)
{
    QFile file;
    Blocks b{this, &file};
    if (!Start_Blocks(false, local, remote, file, b.total))
        return false;
    curl_easy_setopt(m_curl, CURLOPT_WRITEFUNCTION, Write_Blocks);
    curl_easy_setopt(m_curl, CURLOPT_WRITEDATA, &b);
    const int code = Run();
    if (code == CURLE_OK && file.write(b.pending) != b.pending.size())
        b.failed = true;
    if (code != CURLE_OK || b.failed) {
        if (b.failed && code == CURLE_OK)
            Record_Local(Failed_Step(b, false), CURLE_WRITE_ERROR, file.fileName(), file.errorString());
        else
            Record_Error(Failed_Step(b, false), code);
        return false;
    }
    emit Progress(static_cast<qint32>(b.total), static_cast<qint32>(b.total));
    return true;
}

qint64 cFTP::GetFTPFileSize(const QString &remote)
{
    const QString step = QStringLiteral("FtpFindFirstFile");
    if (!Begin()) {
        Not_Connected(step);
        return Find_Failed;
    }
    // The name is a pattern: a blank becomes "?", which matches it.
    const QString path = Absolute(remote);
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    const QString pattern = path.mid(slash + 1).replace(QLatin1Char(' '), QLatin1Char('?'));
    QByteArray listing;
    QBuffer sink(&listing);
    sink.open(QIODevice::WriteOnly);
    curl_easy_setopt(m_curl, CURLOPT_URL, Url(path.left(slash + 1)).constData());
    curl_easy_setopt(m_curl, CURLOPT_WRITEFUNCTION, Write_Whole);
    curl_easy_setopt(m_curl, CURLOPT_WRITEDATA, static_cast<QIODevice *>(&sink));
    if (!Perform(step))
        return Find_Failed;
    return Find_In_Listing(QString::fromUtf8(listing), pattern);
}
