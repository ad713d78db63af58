#pragma once
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QSize>

class QWidget;

// Keeps a screen's controls in proportion as the window is resized: each
// control's place, size and font size are recorded once and scaled by the
// ratio of the screen's inside size now to the recorded one. Nothing is
// done while the window is minimised.
class ScreenScaler : public QObject
{
    Q_OBJECT
public:
    explicit ScreenScaler(QWidget *screen);
    // Records the present figures of every child control.
    void Record();
    void Apply();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Figures
    {
        QRect rect;
        qreal fontSize = 0;
    };
    QWidget *m_screen;
    QSize m_recordedSize;
    QHash<QWidget *, Figures> m_figures;
};
