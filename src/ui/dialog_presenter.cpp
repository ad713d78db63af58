#include "dialog_presenter.h"
#include "core/dialogs.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// Esc on a Yes/No box: the box has no Cancel, so the key does nothing (the
// toolkit would otherwise take it for No).
class Ignore_Escape : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        return event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape;
    }
};

QWidget *parentWindow()
{
    return QApplication::activeWindow();
}

// A box is at least as wide as its title, with room for the frame's buttons
// beside it: a narrow box would cut the title short.
void Fit_Title(QMessageBox &box)
{
    QFont bold = box.font();
    bold.setBold(true);
    const int need = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) * 5 / 4 + 140;
    if (auto *grid = qobject_cast<QGridLayout *>(box.layout()))
        grid->addItem(new QSpacerItem(need, 0, QSizePolicy::Minimum, QSizePolicy::Fixed), grid->rowCount(), 0, 1,
                      grid->columnCount());
}

int showBox(const QString &text, int style, const QString &title)
{
    QMessageBox box(parentWindow());
    box.setWindowTitle(title);
    box.setText(text);
    switch (style & 0x70) {
    case vbCritical:
        box.setIcon(QMessageBox::Critical);
        break;
    case vbQuestion:
        box.setIcon(QMessageBox::Question);
        break;
    case vbExclamation:
        box.setIcon(QMessageBox::Warning);
        break;
    case vbInformation:
        box.setIcon(QMessageBox::Information);
        break;
    default:
        box.setIcon(QMessageBox::NoIcon);
    }
    switch (style & 7) {
    case vbOKCancel:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        break;
    case vbYesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    case vbYesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.installEventFilter(new Ignore_Escape(&box));
        break;
    default:
        box.setStandardButtons(QMessageBox::Ok);
    }
    Fit_Title(box);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return vbYes;
    case QMessageBox::No:
        return vbNo;
    case QMessageBox::Cancel:
        return vbCancel;
    default:
        return vbOK;
    }
}

void showTimed(const QString &text, const QString &title, int msec)
{
    QMessageBox box(parentWindow());
    box.setWindowTitle(title);
    box.setText(text);
    box.setIcon(QMessageBox::Information);
    box.setStandardButtons(QMessageBox::Ok);
    Fit_Title(box);
    QTimer::singleShot(msec, &box, &QMessageBox::accept);
    box.exec();
}

bool showForm(const QString &prompt, QList<Input_Field> &fields, const QString &title)
{
    QDialog box(parentWindow());
    box.setObjectName(QStringLiteral("InputForm"));
    box.setWindowTitle(title);
    auto *lines = new QFormLayout;
    QList<QLineEdit *> edits;
    for (int i = 0; i < fields.size(); ++i) {
        auto *edit = new QLineEdit(fields[i].value, &box);
        edit->setObjectName(QStringLiteral("Field%1").arg(i));
        edit->setMinimumWidth(260);
        if (fields[i].hidden)
            edit->setEchoMode(QLineEdit::Password);
        lines->addRow(fields[i].label, edit);
        edits << edit;
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &box);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);
    auto *main = new QVBoxLayout(&box);
    main->addWidget(new QLabel(prompt, &box));
    main->addLayout(lines);
    main->addWidget(buttons);
    // The first empty line takes the typing: on a second use that is the hidden one.
    for (QLineEdit *edit : edits)
        if (edit->text().isEmpty()) {
            edit->setFocus();
            break;
        }
    if (box.exec() != QDialog::Accepted)
        return false;
    for (int i = 0; i < fields.size(); ++i)
        fields[i].value = edits[i]->text();
    return true;
}

} // namespace

void Install_Dialog_Presenter()
{
    Dialogs::Presenter p;
    p.msgBox = showBox;
    p.timed = showTimed;
    p.folder = [](const QString &prompt, const QString &start) {
        return QFileDialog::getExistingDirectory(parentWindow(), prompt, start);
    };
    p.openFile = [](const QString &title, const QString &folder, const QString &filter) {
        return QFileDialog::getOpenFileName(parentWindow(), title, folder, filter);
    };
    p.saveFile = [](const QString &title, const QString &folder, const QString &filter) {
        return QFileDialog::getSaveFileName(parentWindow(), title, folder, filter);
    };
    p.form = showForm;
    Dialogs::setPresenter(p);
}
