#include "online_entries.h"
#include "entries_file.h"

#include "core/contacts.h"
#include "core/db.h"
#include "core/globals.h"
#include "core/pause.h"
#include "publish/ftp/cftp.h"

#include <QDir>
#include <QFile>
#include <curl/curl.h>
#include <filesystem>

namespace {

Entries_Service &Service()
{
    static Entries_Service s{QString::fromUtf8(Contacts::Entries_Host), 80, 21};
    return s;
}

size_t Discard(char *, size_t size, size_t count, void *) { return size * count; }

} // namespace

Entries_Service Current_Entries_Service() { return Service(); }
void Set_Entries_Service(const Entries_Service &service) { Service() = service; }

QString Entries_Request_Url(int registrationId)
{
    const Entries_Service &s = Service();
    return QStringLiteral("http://") + s.host + (s.httpPort == 80 ? QString() : QLatin1Char(':') + QString::number(s.httpPort))
           + QStringLiteral("/tallier/onlinereg/online_entries.php?compid=") + QString::number(registrationId);
}

QString Entries_Remote_Name(int registrationId) { return QString::number(registrationId) + QStringLiteral(".csv"); }

QString Entries_Local_Path(int registrationId)
{
    QString folder = QStringLiteral("Registrations");
    const QStringList there = QDir(Data_Dir).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &f : there)
        if (f.compare(folder, Qt::CaseInsensitive) == 0)
            folder = f;
    return Data_Dir + folder + QLatin1Char('/') + Entries_Remote_Name(registrationId);
}

void Send_Entries_Request(const QString &url)
{
    CURL *curl = curl_easy_init();
    if (!curl)
        return;
    const QByteArray u = url.toUtf8();
    curl_easy_setopt(curl, CURLOPT_URL, u.constData());
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, Discard);
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    // The fixed wait that follows is the only synchronisation: never hang here.
    curl_easy_setopt(curl, CURLOPT_TIMEOUT_MS, 3000L);
    curl_easy_perform(curl);
    curl_easy_cleanup(curl);
}

bool Online_Check::Check_Online_Entries(Connection &conn, cFTP &ftp, short competitionId)
{
    Bar(0);
    RowSet r = conn.query(QStringLiteral("Select registration_id, registration_key, registration_email FROM "
                                         "competitions where competition_id = ")
                          + QString::number(competitionId));
    const int id = r.eof() ? 0 : r.value(QStringLiteral("registration_id")).toInt();
    const QString key = r.eof() ? QString() : r.text(QStringLiteral("registration_key"));
    const QString email = r.eof() ? QString() : r.text(QStringLiteral("registration_email"));

    // The request goes out before the link is checked.
    Send_Entries_Request(Entries_Request_Url(id));
    Bar(1);
    Pause_Ms(3000);
    if (email.isEmpty() || key.isEmpty() || id == 0) {
        Box(Online_Msg::Not_Setup);
        Bar(-1);
        return false;
    }
    Bar(5);
    Bar(6);
    m_local = Entries_Local_Path(id);
    Bar(7);
    if (!Download_Entries_File(ftp, Entries_Remote_Name(id), m_local)) {
        Box(Online_Msg::Auth_Failure);
        Bar(-1);
        return false;
    }
    Bar(8);
    ftp.DeleteFTPFile(Entries_Remote_Name(id));
    ftp.CloseConnection();
    return true;
}

bool Online_Check::Download_Entries_File(cFTP &ftp, const QString &remote, const QString &local)
{
    ftp.SetPort(Service().ftpPort);
    if (ftp.OpenConnection(Service().host, QString::fromUtf8(Contacts::Entries_Ftp_User),
                           QString::fromUtf8(Contacts::Entries_Ftp_Password)))
        ftp.SetFTPDirectory(QStringLiteral("/"));
    QDir().mkpath(QFileInfo(local).absolutePath());
    // The download goes to a file of its own and replaces the old one only when whole:
    // written over the old file, a shorter new one would keep the old one's tail.
    const QString part = local + QStringLiteral(".part");
    QFile::remove(part);
    std::error_code replaced;
    if (ftp.FTPDownloadFile(part, remote))
        std::filesystem::rename(QFile::encodeName(part).toStdString(), QFile::encodeName(local).toStdString(), replaced);
    else if (!ftp.GetLastErrorMessage().isEmpty())   // a file that is not there leaves no text
        Box(ftp.GetLastErrorMessage());
    QFile::remove(part);
    Bar(9);
    return true;   // a failed download goes on to the delete and the old local file
}

QString Entries_Preview::label() const
{
    QString text = QString::number(newCount) + QStringLiteral(" new registrations found");
    if (skipped == 1)
        text += QStringLiteral(" (1 incomplete line skipped)");
    else if (skipped > 1)
        text += QStringLiteral(" (%1 incomplete lines skipped)").arg(skipped);
    return text;
}

Entries_Preview Preview_Entries(Connection &conn, short competitionId, const QString &localPath)
{
    Entries_Preview p;
    p.rows.append(Entries_File::Headings());
    QFile file(localPath);
    if (!file.exists() || !file.open(QIODevice::ReadOnly)) {
        p.noFile = true;
        return p;
    }
    const Entries_File::Contents c = Entries_File::Read(file.readAll());
    for (int i = 1; i < c.highestIndex; ++i)
        p.rows.append(QStringList());
    p.newCount = c.highestIndex - 2;
    int row = 1;
    for (const QStringList &fields : c.lines) {
        if (fields.size() < Entries_File::Fields) {
            --p.newCount;
            ++p.skipped;
            continue;
        }
        if (conn.scalar(Entries_File::Check_Sql(competitionId, fields)).toInt() > 0) {
            --p.newCount;
            continue;
        }
        p.rows[row++] = Entries_File::Preview_Row(fields);
    }
    if (p.newCount > 0) {
        const QVariant low = conn.scalar(QStringLiteral("SELECT min(competitor_id) -1 as compno FROM (")
                                         + Competitor_Numbers_Sql(competitionId) + QLatin1Char(')'));
        p.nextNumber = low.isNull() ? 600 : low.toInt();
    }
    return p;
}
