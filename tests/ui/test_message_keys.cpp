// Esc in a box: Cancel where the box has one, OK on a box with OK alone, and
// nothing at all in a Yes/No box, drawn or scripted alike.
#include "core/dialogs.h"
#include "ui/dialog_presenter.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QtTest>

class TestMessageKeys : public QObject
{
    Q_OBJECT
private slots:
    void escape_in_a_box_data();
    void escape_in_a_box();
};

void TestMessageKeys::escape_in_a_box_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("answer");   // after Esc twice and then Yes if the box is still there
    QTest::newRow("Yes/No") << int(vbYesNo + vbQuestion) << int(vbYes);
    QTest::newRow("Yes/No/Cancel") << int(vbYesNoCancel) << int(vbCancel);
    QTest::newRow("OK/Cancel") << int(vbOKCancel) << int(vbCancel);
    QTest::newRow("OK") << int(vbOKOnly) << int(vbOK);
}

void TestMessageKeys::escape_in_a_box()
{
    QFETCH(int, style);
    Install_Dialog_Presenter();
    Dialogs::setScripted(false);
    QTimer::singleShot(0, [] {
        QPointer<QMessageBox> box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        for (int i = 0; i < 2 && box && box->isVisible(); ++i)
            QTest::keyClick(box, Qt::Key_Escape);
        if (box && box->isVisible())
            box->button(QMessageBox::Yes)->click();
    });
    QTEST(Msg_Box("Do you want to save your changes? ", style), "answer");
    Dialogs::setScripted(true);
    for (int answer : {Key_Escape_Answer, Key_Escape_Answer, int(vbYes)})
        Dialogs::queueAnswer(answer);
    QTEST(Msg_Box("Do you want to save your changes? ", style), "answer");
}

QTEST_MAIN(TestMessageKeys)
#include "test_message_keys.moc"
