// The report engine: designs load with their fixed texts, names are found or
// refused, long lists run over pages without losing a line, and the sheet
// reaches a PDF from the preview and from a print with no printer.
#include "pdf_text.h"
#include "support/test_env.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "reports/report.h"
#include "reports/report_output.h"

#include <QAction>
#include <QApplication>
#include <QPrintPreviewDialog>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <QtTest>

class TestReportEngine : public QObject
{
    Q_OBJECT

    // Kept for a look when STRATHMARK_REPORT_DUMP names a folder.
    static QString Output(const TestDataFolder &env, const QString &name)
    {
        const QString dump = qEnvironmentVariable("STRATHMARK_REPORT_DUMP");
        return dump.isEmpty() ? env.file(name + QStringLiteral(".pdf")) : dump + QLatin1Char('/') + name + ".pdf";
    }

private slots:
    void designs_data()
    {
        QTest::addColumn<QString>("report");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("band");
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("caption");
        QTest::newRow("1") << "DataReport1" << "SOBHD Championship Report" << "Section4" << "Label3"
                           << "ORGANISERS'/JUDGES' CHAMPIONSHIP REPORT";
        QTest::newRow("2") << "DataReport2" << "Judges Results" << "Section2" << "Label6" << "Sean Truibhas";
        QTest::newRow("3") << "DataReport3" << "Competition report" << "Section5" << "Label0" << "Overall Results";
        QTest::newRow("4") << "DataReport4" << "Championship Report" << "Section2" << "Label10" << "No Judges Places";
        QTest::newRow("5") << "DataReport5" << "Line up sheet" << "Section2" << "Label6" << "Register";
        QTest::newRow("6") << "DataReport6" << "Call-Back Sheet" << "Section4" << "Label3" << "Call-Back Sheet";
        QTest::newRow("7") << "DataReport7" << "Result Checker" << "Section2" << "Label5" << "Remote Computer";
        QTest::newRow("8") << "DataReport8" << "DataReport8" << "Section2" << "Label3" << "Dance Points";
        QTest::newRow("9") << "DataReport9" << "Teachers Trophy" << "Section4" << "Label1" << "Teachers Trophy Report";
        QTest::newRow("12") << "DataReport12" << "Call-Back Sheet" << "Section4" << "Label3" << "Top 10 Dancers";
    }

    // Each design loads with its title and fixed text, and renders with every
    // label filled by its own name.
    void designs()
    {
        QFETCH(QString, report);
        QFETCH(QString, title);
        QFETCH(QString, band);
        QFETCH(QString, control);
        QFETCH(QString, caption);
        TestDataFolder env;
        QVERIFY(Report_Names().contains(report));
        auto r = Report::Load(report);
        QCOMPARE(r->Title(), title);
        QCOMPARE(r->Controls(band, control).Caption, caption);
        QStringList filled;
        for (const Report_Band &b : r->bands())
            for (const Report_Control &c : b.controls)
                if (c.kind == Report_Control::Label && c.Caption.isEmpty()) {
                    filled << QStringLiteral("#%1").arg(filled.size() + 1);
                    r->Controls(b.Name, c.Name).Caption = c.Name + QStringLiteral("\r\n") + filled.last();
                }
        const QString pdf = Output(env, report);
        QVERIFY(r->Render_Pdf(pdf) >= 1);
        const QString text = Pdf_Pages(pdf).join(QLatin1Char('\n'));
        QVERIFY2(text.contains(caption), qPrintable(text));
        for (const QString &mark : filled)
            QVERIFY2(text.contains(QRegularExpression(mark + QStringLiteral("\\b"))), qPrintable(mark));
    }

    void names_data()
    {
        QTest::addColumn<QString>("band");
        QTest::addColumn<QString>("control");
        QTest::addColumn<bool>("found");
        QTest::newRow("exact") << "Section4" << "cname" << true;
        QTest::newRow("any case") << "section4" << "CNAME" << true;
        QTest::newRow("wrong band") << "Section2" << "cname" << false;
        QTest::newRow("unknown control") << "Section4" << "cnames" << false;
        QTest::newRow("unknown band") << "Section6" << "cname" << false;
    }

    void names()
    {
        QFETCH(QString, band);
        QFETCH(QString, control);
        QFETCH(bool, found);
        auto r = Report::Load(QStringLiteral("DataReport6"));
        bool raised = false;
        try {
            r->Controls(band, control).Caption = QStringLiteral("x");
        } catch (const AppError &) {
            raised = true;
        }
        QCOMPARE(raised, !found);
        QVERIFY_THROWS_EXCEPTION(AppError, Report::Load(QStringLiteral("DataReport10")));
    }

    // 150 rows of three parallel columns, one name far too long for its
    // column: every row on one line of some page, under the header, once.
    void long_columns_run_over_pages()
    {
        TestDataFolder env;
        auto r = Report::Load(QStringLiteral("DataReport6"));
        r->Controls(QStringLiteral("Section4"), QStringLiteral("aname")).Caption = QStringLiteral("Under 12 Highland");
        QStringList ids, names, towns;
        for (int i = 1; i <= 150; ++i) {
            ids << QString::number(i);
            names << (i == 7 ? QStringLiteral("Dancer%1 Mhairi-Anne Featherstonehaugh-Cholmondeley of Auchtermuchty").arg(i)
                             : QStringLiteral("Dancer%1 Surname").arg(i));
            towns << QStringLiteral("Town%1").arg(i);
        }
        r->Controls(QStringLiteral("Section2"), QStringLiteral("compid")).Caption = ids.join(QStringLiteral("\r\n"));
        r->Controls(QStringLiteral("Section2"), QStringLiteral("compname")).Caption = names.join(QStringLiteral("\r\n"));
        r->Controls(QStringLiteral("Section2"), QStringLiteral("comptown")).Caption = towns.join(QStringLiteral("\r\n"));
        const QString pdf = env.file(QStringLiteral("long.pdf"));
        const int pages = r->Render_Pdf(pdf);
        QVERIFY(pages >= 3);
        const QStringList text = Pdf_Pages(pdf);
        QCOMPARE(text.size(), pages);
        QList<int> seen(151, 0);
        const QRegularExpression row(QStringLiteral("^(\\d+) Dancer(\\d+) .*Town(\\d+)$"));
        for (int p = 0; p < pages; ++p) {
            const QStringList lines = Pdf_Lines(text.at(p));
            QVERIFY2(In_Order(text.at(p), {QStringLiteral("Under 12 Highland"), QStringLiteral("Call-Back Sheet"),
                                           QStringLiteral("Page %1 of %2").arg(p + 1).arg(pages)}),
                     qPrintable(text.at(p)));
            for (const QString &line : lines) {
                const auto m = row.match(line);
                if (!m.hasMatch())
                    continue;
                QCOMPARE(m.captured(2), m.captured(1));
                QCOMPARE(m.captured(3), m.captured(1));
                ++seen[m.captured(1).toInt()];
            }
        }
        for (int i = 1; i <= 150; ++i)
            QVERIFY2(seen.at(i) == 1, qPrintable(QString::number(i)));
        // The long name wraps inside its column: all of it is there.
        QVERIFY(text.join(QString()).simplified().contains(QStringLiteral("of Auchtermuchty")));
    }

    void footer_text()
    {
        QVERIFY(QRegularExpression(QStringLiteral("^Printed: \\S.* from ") + QRegularExpression::escape(QSysInfo::machineHostName()) + "$")
                    .match(Footer_Text())
                    .hasMatch());
    }

    // With no printer the box offers a PDF; the preview saves one too.
    void pdf_from_print_and_preview()
    {
        TestDataFolder env;
        auto r = Report::Load(QStringLiteral("DataReport12"));
        r->Controls(QStringLiteral("Section2"), QStringLiteral("compid")).Caption = QStringLiteral("101\r\n102");
        if (QPrinterInfo::defaultPrinter().isNull()) {
            Dialogs::queueAnswer(vbNo);
            QVERIFY(!Print_Report(*r));
            Dialogs::queueAnswer(vbYes);
            Dialogs::queueText(env.file(QStringLiteral("printed")));
            QVERIFY(Print_Report(*r));
            QCOMPARE(Dialogs::texts().first(),
                     QStringLiteral("No printer is installed. Do you want to save the report as a PDF file instead?"));
            QVERIFY(Pdf_Pages(env.file(QStringLiteral("printed.pdf"))).join(QString()).contains(QStringLiteral("102")));
        }
        QCOMPARE(Pending_Jobs(), 0);
        QPrintPreviewDialog *preview = Show_Report(r);
        QCOMPARE(preview->objectName(), QStringLiteral("DataReport12"));
        QCOMPARE(preview->windowTitle(), QStringLiteral("Call-Back Sheet"));
        auto *save = preview->findChild<QAction *>(QStringLiteral("actSaveAsPdf"));
        QVERIFY(save);
        QCOMPARE(save->text(), QStringLiteral("Save as PDF..."));
        Dialogs::queueText(env.file(QStringLiteral("saved.pdf")));
        save->trigger();
        QVERIFY(Pdf_Pages(env.file(QStringLiteral("saved.pdf"))).join(QString()).contains(QStringLiteral("Top 10 Dancers")));
        preview->close();
    }
};

QTEST_MAIN(TestReportEngine)
#include "test_report_engine.moc"
