#pragma once
#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

class Connection;
class cFTP;

// Where the online entries service is: its web host serves both the request
// and the FTP account. Tests point it at their own servers.
struct Entries_Service
{
    QString host;
    int httpPort = 80;
    int ftpPort = 21;
};
Entries_Service Current_Entries_Service();
void Set_Entries_Service(const Entries_Service &service);

namespace Online_Msg {
inline const QString Not_Setup = QStringLiteral("Err 1: Online registration is not setup for this event");
inline const QString Auth_Failure =
    QStringLiteral("Err 2: Authentication Failure. Re-check email, id and registration key");
inline const QString No_Registrations = QStringLiteral("No Registrations");
inline const QString Load_Failed = QStringLiteral("There was en error with the load. Please try again later!");
} // namespace Online_Msg

QString Entries_Request_Url(int registrationId);
QString Entries_Remote_Name(int registrationId);
// Data_Dir + Registrations/<id>.csv (an existing folder of that name in any case serves).
QString Entries_Local_Path(int registrationId);

// Asks the service to write the entries file: a plain GET whose answer is not read.
void Send_Entries_Request(const QString &url);

// Step 1: the request, the wait, the download and the delete on the server.
// The caller gives the bar's steps (-1 hides it) and shows the boxes.
class Online_Check
{
public:
    std::function<void(int)> bar;
    std::function<void(const QString &)> box;

    bool Check_Online_Entries(Connection &conn, cFTP &ftp, short competitionId);
    bool Download_Entries_File(cFTP &ftp, const QString &remote, const QString &local);
    // The local file of the last check.
    QString localPath() const { return m_local; }

private:
    void Bar(int value) { if (bar) bar(value); }
    void Box(const QString &text) { if (box) box(text); }
    QString m_local;
};

// What the check found: the rows of the preview grid (row 0 is the headings;
// rows past the new entries are empty) and what the label and number box show.
struct Entries_Preview
{
    bool noFile = false;
    QList<QStringList> rows;
    int newCount = 0;
    int skipped = 0;               // lines with too few fields
    int nextNumber = 600;
    QString label() const;
};
Entries_Preview Preview_Entries(Connection &conn, short competitionId, const QString &localPath);

// Step 2: loads the preview rows under numbers running down from the number
// typed, passing over numbers in use. Gives the count loaded; a fault throws:
// the rows before it stay, the row in hand leaves nothing.
int Load_Entries(Connection &conn, short competitionId, const QString &firstNumber,
                 const QList<QStringList> &rows, const QDate &today);
QString Loaded_Label(int count);
// The competitor numbers in use in the competition, in every table that holds them.
QString Competitor_Numbers_Sql(short competitionId);
