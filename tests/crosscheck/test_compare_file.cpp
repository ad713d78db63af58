#include "crosscheck_event.h"
#include "crosscheck/compare_file.h"

#include <QDir>
#include <QFile>
#include <QtTest>

class TestCompareFile : public QObject
{
    Q_OBJECT
private slots:
    void written_bytes_data();
    void written_bytes();
};

void TestCompareFile::written_bytes_data()
{
    QTest::addColumn<short>("type");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("folder");  // made before the write, or none
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("competition, place 7 kept") << short(1) << "E1" << ""
        << QByteArray("1\t12\t1\t1\r\n1\t17\t2\t1\r\n1\t20\t2\t1\r\n1\t17\t1\t2\r\n1\t20\t7\t2\r\n");
    QTest::newRow("three judges, placings first, no place 7") << short(2) << "E1" << "compare"
        << QByteArray("2\t12\t1\t1\t1\r\n2\t17\t2\t1\t1\r\n2\t12\t1\t1\t2\r\n2\t17\t1\t2\t1\r\n"
                      "1\t12\t1  \t1\r\n1\t17\t2 =\t1\r\n1\t20\t2 =\t1\r\n1\t17\t1  \t2\r\n");
    QTest::newRow("no results, empty file") << short(2) << "E3" << "Compare" << QByteArray();
}

void TestCompareFile::written_bytes()
{
    QFETCH(short, type);
    QFETCH(QString, group);
    QFETCH(QString, folder);
    QFETCH(QByteArray, bytes);
    Crosscheck_Event ev;
    Current_Group_Id = group;
    const QString name = "Under 12 \u00e9t\u00e9", dir = Data_Dir + (folder.isEmpty() ? "Compare" : folder) + '/';
    QFile old(dir + name + ".cmp");  // a file there already is replaced whole
    QVERIFY(folder.isEmpty() || (QDir().mkpath(dir) && old.open(QIODevice::WriteOnly) && old.write("xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx") > 0));
    old.close();

    Write_Compare_File(type, name);

    QFile file(dir + name + QStringLiteral(".cmp"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), bytes);
    QCOMPARE(QDir(Data_Dir).entryList(QDir::Dirs | QDir::NoDotAndDotDot).filter("compare", Qt::CaseInsensitive).size(), 1);
}

QTEST_GUILESS_MAIN(TestCompareFile)
#include "test_compare_file.moc"
