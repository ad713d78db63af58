#pragma once
#include <QApplication>

// The application object. A fault that no action handled reaches notify():
// it is shown in a box titled with the program's name and the program goes on.
class StrathmarkApp : public QApplication
{
    Q_OBJECT
public:
    StrathmarkApp(int &argc, char **argv);
    bool notify(QObject *receiver, QEvent *event) override;
};

// Shows a fault that reached the last catch.
void Show_Unhandled_Fault(const QString &message);
