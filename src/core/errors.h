#pragma once
#include <QString>
#include <stdexcept>

// A run-time fault of the program. The action's own handler shows its box;
// one with no handler reaches the application's last catch.
class AppError : public std::runtime_error
{
public:
    explicit AppError(const QString &message)
        : std::runtime_error(message.toStdString()), m_message(message) {}
    QString message() const { return m_message; }

private:
    QString m_message;
};

// A fault of the database engine, carrying the engine's message.
class DbError : public AppError
{
public:
    using AppError::AppError;
};
