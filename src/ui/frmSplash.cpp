#include "frmSplash.h"
#include "version.h"
#include "core/globals.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

frmSplash::frmSplash(QWidget *parent) : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(App_Title);
    auto *frame = new QFrame(this);
    frame->setObjectName(QStringLiteral("Frame1"));
    frame->setFrameShape(QFrame::Box);
    auto *product = new QLabel(App_Title, frame);
    product->setObjectName(QStringLiteral("lblProductName"));
    QFont f = product->font();
    f.setPointSize(26);
    f.setBold(true);
    product->setFont(f);
    auto *sub = new QLabel(QStringLiteral("Highland dancing competitions"), frame);
    sub->setObjectName(QStringLiteral("lblPlatform"));
    auto *version = new QLabel(Version_Text(), frame);
    version->setObjectName(QStringLiteral("lblVersion"));
    auto *inner = new QVBoxLayout(frame);
    inner->setContentsMargins(40, 30, 40, 30);
    inner->addWidget(product, 0, Qt::AlignCenter);
    inner->addWidget(sub, 0, Qt::AlignCenter);
    inner->addSpacing(20);
    inner->addWidget(version, 0, Qt::AlignRight);
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(frame);
    resize(520, 260);
}
