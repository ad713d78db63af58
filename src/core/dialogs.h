#pragma once
#include <QList>
#include <QString>
#include <functional>

// Message box styles and answers, as the screens write them.
enum MsgStyle {
    vbOKOnly = 0,
    vbOKCancel = 1,
    vbYesNoCancel = 3,
    vbYesNo = 4,
    vbCritical = 16,
    vbQuestion = 32,
    vbExclamation = 48,
    vbInformation = 64,
};
enum MsgAnswer { vbOK = 1, vbCancel = 2, vbYes = 6, vbNo = 7 };
// A scripted answer that presses Esc on the box: Cancel where the box has it,
// OK on a box with OK alone, and nothing at all on a Yes/No box, which then
// takes the next answer.
constexpr int Key_Escape_Answer = -27;

// Every box, question, folder browser and file chooser of the program goes
// through these routines. The windows themselves are drawn by the user
// interface, which installs its presenter at start; tests put the routines in
// scripted mode, where each call is recorded and answered from a queue.
int Msg_Box(const QString &text, int style = vbOKOnly, const QString &title = QString());
QString Browse_For_Folder(const QString &prompt, const QString &startFolder);
QString Get_Open_File(const QString &title, const QString &folder, const QString &filter);
QString Get_Save_File(const QString &title, const QString &folder, const QString &filter);
// The self-closing confirmation box, closed by a timer after msec.
void Show_Timed_Box(const QString &text, const QString &title, int msec);

// One line of a small input form: its label, the text shown at first (the
// answer afterwards), and whether what is typed stays hidden.
struct Input_Field
{
    QString label;
    QString value;
    bool hidden = false;
};
// A form of text lines with OK and Cancel; false when cancelled, and then the
// values are left as they were.
bool Input_Form(const QString &prompt, QList<Input_Field> &fields, const QString &title = QString());

namespace Dialogs {

struct Record
{
    QString kind;   // "msgbox", "timed", "folder", "open", "save", "form"
    QString text;
    QString title;  // the title as shown (the program's title when none given)
    int style = 0;
};

struct Presenter
{
    std::function<int(const QString &text, int style, const QString &title)> msgBox;
    std::function<QString(const QString &prompt, const QString &start)> folder;
    std::function<QString(const QString &title, const QString &folder, const QString &filter)> openFile;
    std::function<QString(const QString &title, const QString &folder, const QString &filter)> saveFile;
    std::function<void(const QString &text, const QString &title, int msec)> timed;
    std::function<bool(const QString &prompt, QList<Input_Field> &fields, const QString &title)> form;
};

void setPresenter(const Presenter &p);

// Scripted mode for tests: nothing is shown, every call is recorded.
void setScripted(bool on);
bool isScripted();
// Answers for the next boxes, in order. With the queue empty a box gets its
// first button (OK, or Yes).
void queueAnswer(int answer);
// Answers for the next folder browser or file chooser; empty means cancelled.
void queueText(const QString &text);
// What is typed into the next input form, line by line; a null string leaves
// the line as shown, an empty list presses Cancel. With none queued a form is
// taken as shown.
void queueForm(const QStringList &values);
// The lines of the last input form as it was shown (hidden ones included).
QList<Input_Field> lastForm();
QList<Record> records();
Record lastRecord();
void clearRecords();
// Texts of the recorded boxes in order, for compact assertions.
QStringList texts();

} // namespace Dialogs
