#include "frmAbout.h"
#include "version.h"
#include "core/globals.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

frmAbout::frmAbout(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("About ") + App_Title);
    auto *title = new QLabel(App_Title, this);
    title->setObjectName(QStringLiteral("lblTitle"));
    QFont f = title->font();
    f.setPointSize(18);
    f.setBold(true);
    title->setFont(f);
    auto *version = new QLabel(Version_Text(), this);
    version->setObjectName(QStringLiteral("lblVersion"));
    auto *description = new QLabel(
        QStringLiteral("Runs Highland dancing competitions from set-up to published results."), this);
    description->setObjectName(QStringLiteral("lblDescription"));
    description->setWordWrap(true);
    auto *line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    auto *ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 16);
    layout->addWidget(title);
    layout->addWidget(version);
    layout->addSpacing(8);
    layout->addWidget(description);
    layout->addWidget(line);
    layout->addLayout(buttons);
    setMinimumWidth(380);
}
