#include "dialogs.h"
#include "globals.h"

#include <QRegularExpression>
#include <QStringList>
#include <cstdio>

namespace {

Dialogs::Presenter g_presenter;
bool g_scripted = false;
QList<int> g_answers;
QStringList g_texts;
QList<QStringList> g_forms;
QList<Input_Field> g_lastForm;
QList<Dialogs::Record> g_records;

QString shownTitle(const QString &title)
{
    return title.isEmpty() ? App_Title : title;
}

int firstButton(int style)
{
    switch (style & 7) {
    case vbYesNo:
    case vbYesNoCancel:
        return vbYes;
    default:
        return vbOK;
    }
}

// What Esc does on a box of this style; 0: nothing, the box stays.
int escapeAnswer(int style)
{
    switch (style & 7) {
    case vbYesNo:
        return 0;
    case vbOKCancel:
    case vbYesNoCancel:
        return vbCancel;
    default:
        return vbOK;
    }
}

int nextAnswer(int style)
{
    while (!g_answers.isEmpty()) {
        int answer = g_answers.takeFirst();
        if (answer == Key_Escape_Answer)
            answer = escapeAnswer(style);
        if (answer != 0)
            return answer;
    }
    return firstButton(style);
}

QString nextText()
{
    return g_texts.isEmpty() ? QString() : g_texts.takeFirst();
}

} // namespace

int Msg_Box(const QString &text, int style, const QString &title)
{
    const QString t = shownTitle(title);
    if (g_scripted) {
        g_records << Dialogs::Record{QStringLiteral("msgbox"), text, t, style};
        return nextAnswer(style);
    }
    if (g_presenter.msgBox)
        return g_presenter.msgBox(text, style, t);
    std::fprintf(stderr, "%s: %s\n", qPrintable(t), qPrintable(text));
    return firstButton(style);
}

QString Browse_For_Folder(const QString &prompt, const QString &startFolder)
{
    // The prompt becomes the browser's title, where a mnemonic "&" would show as it stands.
    QString shown = prompt;
    shown.replace(QRegularExpression(QStringLiteral("&(.)")), QStringLiteral("\\1"));
    if (g_scripted) {
        g_records << Dialogs::Record{QStringLiteral("folder"), shown, App_Title, 0};
        return nextText();
    }
    return g_presenter.folder ? g_presenter.folder(shown, startFolder) : QString();
}

QString Get_Open_File(const QString &title, const QString &folder, const QString &filter)
{
    if (g_scripted) {
        g_records << Dialogs::Record{QStringLiteral("open"), filter, shownTitle(title), 0};
        return nextText();
    }
    return g_presenter.openFile ? g_presenter.openFile(title, folder, filter) : QString();
}

QString Get_Save_File(const QString &title, const QString &folder, const QString &filter)
{
    if (g_scripted) {
        g_records << Dialogs::Record{QStringLiteral("save"), filter, shownTitle(title), 0};
        return nextText();
    }
    return g_presenter.saveFile ? g_presenter.saveFile(title, folder, filter) : QString();
}

void Show_Timed_Box(const QString &text, const QString &title, int msec)
{
    if (g_scripted) {
        g_records << Dialogs::Record{QStringLiteral("timed"), text, shownTitle(title), 0};
        return;
    }
    if (g_presenter.timed)
        g_presenter.timed(text, shownTitle(title), msec);
}

bool Input_Form(const QString &prompt, QList<Input_Field> &fields, const QString &title)
{
    if (g_scripted) {
        g_records << Dialogs::Record{QStringLiteral("form"), prompt, shownTitle(title), 0};
        g_lastForm = fields;
        const QStringList typed = g_forms.isEmpty() ? QStringList(fields.size(), QString()) : g_forms.takeFirst();
        if (typed.isEmpty())
            return false;
        for (int i = 0; i < fields.size() && i < typed.size(); ++i)
            if (!typed[i].isNull())
                fields[i].value = typed[i];
        return true;
    }
    return g_presenter.form && g_presenter.form(prompt, fields, shownTitle(title));
}

namespace Dialogs {

void setPresenter(const Presenter &p) { g_presenter = p; }

void setScripted(bool on)
{
    g_scripted = on;
    g_answers.clear();
    g_texts.clear();
    g_forms.clear();
    g_records.clear();
}

bool isScripted() { return g_scripted; }
void queueAnswer(int answer) { g_answers << answer; }
void queueText(const QString &text) { g_texts << text; }
void queueForm(const QStringList &values) { g_forms << values; }
QList<Input_Field> lastForm() { return g_lastForm; }
QList<Record> records() { return g_records; }
Record lastRecord() { return g_records.isEmpty() ? Record{} : g_records.last(); }
void clearRecords() { g_records.clear(); }

QStringList texts()
{
    QStringList out;
    for (const Record &r : g_records)
        out << r.text;
    return out;
}

} // namespace Dialogs
