// The FTP client against a real server on 127.0.0.1.
#include "ftp_test_server.h"
#include "publish/ftp/cftp.h"
#include "publish/ftp/cftp_folder.h"

#include <QRegularExpression>
#include <QTcpServer>
#include <QtTest>

namespace {
const QString User = "tallier@games.example", Password = "reel2026", Host = "127.0.0.1";

QByteArray Read(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

void Write(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
}
} // namespace

class TestFtpClient : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void blocks_and_progress_data();
    void blocks_and_progress();
    void names_folders_rename_delete();
    void error_texts_data();
    void error_texts();
    void transfer_types_and_whole_folder();

private:
    bool connect(bool passive = true)
    {
        passive ? m_ftp->SetModePassive() : m_ftp->SetModeActive();
        m_ftp->SetTransferBinary();
        return m_ftp->OpenConnection(Host, User, Password);
    }
    QString local(const QString &name) const { return m_local.filePath(name); }
    std::unique_ptr<cFTP> m_ftp;
    std::unique_ptr<Ftp_Test_Server> m_server;
    QTemporaryDir m_local;
    QStringList m_progress;
};

void TestFtpClient::init()
{
    m_ftp.reset();
    m_server = std::make_unique<Ftp_Test_Server>(User, Password);
    QVERIFY(m_server->started());
    m_ftp = std::make_unique<cFTP>();
    m_ftp->SetPort(m_server->ftpPort());
    m_progress.clear();
    QObject::connect(m_ftp.get(), &cFTP::Progress,
                     [this](qint32 done, qint32 total) { m_progress << QString("%1/%2").arg(done).arg(total); });
}

void TestFtpClient::blocks_and_progress_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("passive");
    QTest::addColumn<QString>("upload");
    QTest::addColumn<QString>("download");   // empty: not downloaded
    for (bool passive : {false, true}) {
        const char *mode = passive ? "passive" : "active";
        QTest::addRow("0 %s", mode) << 0 << passive << "0/0" << "";
        QTest::addRow("254 %s", mode) << 254 << passive << "254/254" << "254/254";
        QTest::addRow("255 %s", mode) << 255 << passive << "255/255 255/255" << "255/255 255/255";
        QTest::addRow("510 %s", mode) << 510 << passive << "255/510 510/510 510/510" << "255/510 510/510 510/510";
        QTest::addRow("511 %s", mode) << 511 << passive << "255/511 510/511 511/511" << "255/511 510/511 511/511";
    }
}

void TestFtpClient::blocks_and_progress()
{
    QFETCH(int, size);
    QFETCH(bool, passive);
    QFETCH(QString, upload);
    QFETCH(QString, download);
    QVERIFY2(connect(passive), qPrintable(m_ftp->GetLastErrorMessage()));
    QByteArray data;
    for (int i = 0; i < size; ++i)
        data += char(i * 37 + 13);   // every byte value, line ends and NULs among them
    Write(local("up.bin"), data);
    QVERIFY2(m_ftp->FTPUploadFile(local("up.bin"), "/up.bin"), qPrintable(m_ftp->GetLastErrorMessage()));
    QCOMPARE(m_progress.join(' '), upload);
    QCOMPARE(Read(m_server->file("up.bin")), data);

    // The target is written from its start and never cut: a longer old file keeps its tail.
    m_progress.clear();
    const QByteArray old(600, 'x');
    Write(local("down.bin"), old);
    QCOMPARE(m_ftp->FTPDownloadFile(local("down.bin"), "up.bin"), !download.isEmpty());
    QCOMPARE(m_progress.join(' '), download);
    QCOMPARE(Read(local("down.bin")), download.isEmpty() ? old : data + old.mid(size));
    const QString log = m_server->log().join(' ');
    if (size > 0) {   // nothing to send opens no data connection
        QCOMPARE(log.contains("EPSV") || log.contains("PASV"), passive);
        QCOMPARE(log.contains("EPRT") || log.contains("PORT"), !passive);
    }
}

void TestFtpClient::names_folders_rename_delete()
{
    QVERIFY(connect());
    const QByteArray data(300, 'e');
    Write(local("entries.csv"), data);
    QVERIFY(m_ftp->SimpleFTPPutFile(local("entries.csv"), "new entries.csv"));
    QCOMPARE(m_ftp->GetFTPFileSize("new entries.csv"), 300);
    QCOMPARE(m_ftp->GetFTPFileSize("other entries.csv"), cFTP::Not_Found);

    QVERIFY(m_ftp->RenameFTPFile("new entries.csv", "St Andrew's.csv"));
    QVERIFY(m_ftp->SimpleFTPGetFile(local("back.csv"), "St Andrew's.csv"));
    QCOMPARE(Read(local("back.csv")), data);

    QVERIFY(m_ftp->CreateFTPDirectory("Highland Games"));
    QVERIFY(m_ftp->SetFTPDirectory("Highland Games"));
    QCOMPARE(m_ftp->GetFTPDirectory(), "/Highland Games");
    QVERIFY(m_ftp->FTPUploadFile(local("entries.csv"), "in folder.csv"));
    QCOMPARE(Read(m_server->file("Highland Games/in folder.csv")), data);
    QVERIFY(m_ftp->SetFTPDirectory("/"));
    QVERIFY(!m_ftp->RemoveFTPDirectory("Highland Games"));   // not empty
    QVERIFY(m_ftp->DeleteFTPFile("Highland Games/in folder.csv"));
    QVERIFY(m_ftp->RemoveFTPDirectory("Highland Games"));
    QVERIFY(m_ftp->DeleteFTPFile("St Andrew's.csv"));
    QCOMPARE(QDir(m_server->root()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), QStringList());
}

void TestFtpClient::error_texts_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("text");   // a pattern for the whole text; empty: the text before stays
    QTest::newRow("wrong password") << "wrong password" << "530 Authentication failed\\.";
    QTest::newRow("nobody listening") << "closed port"
                                      << "InternetConnect error code: 7 Message: Failed to connect to 127\\.0\\.0\\.1 "
                                         "port \\d+ after \\d+ ms: Couldn't connect to server";
    QTest::newRow("missing file, whole get") << "get" << "550 /9\\.csv is not retrievable\\.";
    QTest::newRow("missing file, delete") << "delete" << "550 No such file or directory\\.";
    QTest::newRow("missing folder") << "cd" << "550 No such file or directory\\.";
    QTest::newRow("missing file, block get") << "block get" << "";
}

void TestFtpClient::error_texts()
{
    QFETCH(QString, action);
    QFETCH(QString, text);
    QTcpServer closed;   // a port free a moment ago
    QVERIFY(closed.listen(QHostAddress::LocalHost));
    if (action == "closed port")
        m_ftp->SetPort(closed.serverPort());
    closed.close();
    if (action == "wrong password" || action == "closed port") {
        QVERIFY(!m_ftp->OpenConnection(Host, User, "wrong"));
    } else {
        QVERIFY(connect() && !m_ftp->SetFTPDirectory("before"));
        const QString before = m_ftp->GetLastErrorMessage();
        QVERIFY(!(action == "get"      ? m_ftp->SimpleFTPGetFile(local("x.csv"), "9.csv")
                  : action == "delete" ? m_ftp->DeleteFTPFile("9.csv")
                  : action == "cd"     ? m_ftp->SetFTPDirectory("/No Such Folder")
                                       : m_ftp->FTPDownloadFile(local("x.csv"), "9.csv")));
        if (text.isEmpty())
            text = QRegularExpression::escape(before);
    }
    QVERIFY2(QRegularExpression('^' + text + '$').match(m_ftp->GetLastErrorMessage()).hasMatch(),
             qPrintable(m_ftp->GetLastErrorMessage()));
}

void TestFtpClient::transfer_types_and_whole_folder()
{
    QVERIFY(connect());
    Write(m_server->file("lines.txt"), "Reel\nFling\n");
    m_ftp->SetTransferASCII();
    QVERIFY(m_ftp->SimpleFTPGetFile(local("lines.txt"), "lines.txt"));
    m_ftp->SetTransferBinary();
    QVERIFY(m_ftp->SimpleFTPPutFile(local("lines.txt"), "copy.txt"));
    QCOMPARE(Read(m_server->file("copy.txt")), "Reel\nFling\n");
    QCOMPARE(m_server->log().filter(QRegularExpression("^(TYPE|RETR|STOR) ")).join('|'),
             "TYPE A|RETR lines.txt|TYPE I|STOR copy.txt");

    QDir(m_local.path()).mkpath("site/events");
    Write(local("site/index.htm"), QByteArray(700, 'i'));
    Write(local("site/events/A 1.htm"), QByteArray(40, 'a'));
    for (int pass = 0; pass < 2; ++pass) {   // the second time over what is there
        m_progress.clear();
        QList<qint64> seen;
        QVERIFY(Upload_Folder(*m_ftp, local("site"), "/results", [&](qint64 done, qint64 total) { seen = {done, total}; }));
        QCOMPARE(seen, (QList<qint64>{740, 740}));
    }
    QCOMPARE(Read(m_server->file("results/index.htm")), QByteArray(700, 'i'));
    QCOMPARE(Read(m_server->file("results/events/A 1.htm")), QByteArray(40, 'a'));
}

QTEST_GUILESS_MAIN(TestFtpClient)
#include "test_ftp_client.moc"
