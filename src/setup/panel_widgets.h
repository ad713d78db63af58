#pragma once
// Named controls of the step-by-step screens (the new competition wizard and
// the trophies wizard): tests and support tools find them by these names.
#include <QFont>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QString>
#include <QVBoxLayout>

namespace Panel {

template <class W> W *Named(W *w, const char *name)
{
    w->setObjectName(QLatin1String(name));
    return w;
}

inline QPushButton *Button(QWidget *parent, const char *name, const QString &caption)
{
    auto *b = Named(new QPushButton(caption, parent), name);
    b->setAutoDefault(true);  // Enter presses the button that has the focus
    b->setMinimumWidth(110);
    return b;
}

inline QListWidget *List(QWidget *parent, const char *name, const QString &tip = QString())
{
    auto *l = Named(new QListWidget(parent), name);
    l->setToolTip(tip);
    return l;
}

inline QLineEdit *Box(QWidget *parent, const char *name)
{
    return Named(new QLineEdit(parent), name);
}

inline QFrame *Frame(QWidget *parent, const char *name)
{
    auto *f = Named(new QFrame(parent), name);
    f->setFrameShape(QFrame::StyledPanel);
    return f;
}

// A list under its caption, the caption naming the list for screen readers.
inline QVBoxLayout *Captioned(const QString &caption, QWidget *list)
{
    auto *box = new QVBoxLayout;
    auto *label = new QLabel(caption);
    label->setBuddy(list);
    QFont f = label->font();
    f.setBold(true);
    label->setFont(f);
    box->addWidget(label);
    box->addWidget(list);
    return box;
}

// The screen's content in one column of a readable width, kept in the middle
// of a maximised screen.
inline QVBoxLayout *Column(QWidget *screen, int maxWidth)
{
    auto *column = new QWidget(screen);
    column->setMaximumWidth(maxWidth);
    auto *outer = new QHBoxLayout(screen);
    outer->addStretch();
    outer->addWidget(column, 1);
    outer->addStretch();
    return new QVBoxLayout(column);
}

// The heading over the pages: LblMain large and bold, LblInfo under it.
inline QWidget *Heading(QWidget *parent, QLabel *&main, QLabel *&info)
{
    auto *band = new QFrame(parent);
    band->setAutoFillBackground(true);
    QPalette p = band->palette();
    p.setColor(QPalette::Window, Qt::white);
    band->setPalette(p);
    band->setFrameShape(QFrame::StyledPanel);
    main = Named(new QLabel(band), "LblMain");
    QFont f = main->font();
    f.setPointSizeF(f.pointSizeF() * 1.5);
    f.setBold(true);
    main->setFont(f);
    info = Named(new QLabel(band), "LblInfo");
    info->setWordWrap(true);
    auto *l = new QVBoxLayout(band);
    l->addWidget(main);
    l->addWidget(info);
    return band;
}

} // namespace Panel
