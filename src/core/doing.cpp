#include "doing.h"

#include <QStringList>
#include <exception>

namespace {

QStringList g_stack;
QString g_failed;

} // namespace

Doing::Doing(const QString &what) : m_uncaught(std::uncaught_exceptions())
{
    // A new action starts afresh: a name left by an earlier, handled fault is stale.
    if (g_stack.isEmpty())
        g_failed.clear();
    g_stack << what;
}

Doing::~Doing()
{
    // The innermost action unwound by a fault is destroyed first.
    if (std::uncaught_exceptions() > m_uncaught && g_failed.isEmpty())
        g_failed = g_stack.last();
    g_stack.removeLast();
}

QString Fault_Text(const QString &fault, const QString &fallback)
{
    // The innermost action the fault went through, else the one running.
    QString what = !g_failed.isEmpty() ? g_failed : g_stack.isEmpty() ? QString() : g_stack.last();
    g_failed.clear();
    if (what.isEmpty())
        what = fallback;
    return what.isEmpty() ? fault : what + QStringLiteral(": ") + fault;
}

void Forget_Failed_Action()
{
    g_failed.clear();
}
