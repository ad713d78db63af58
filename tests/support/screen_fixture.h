#pragma once
// A fresh data folder, its connection and the screen under test, taken down
// in reverse order so that the screen never outlives its folder.
#include "support/test_env.h"
#include "core/db.h"

#include <memory>

template <class T>
class Screen_Fixture
{
protected:
    void start()
    {
        m_env = std::make_unique<TestDataFolder>();
        m_conn = std::make_unique<Connection>();
        m_conn->open();
    }
    void stop()
    {
        if (m_screen) {
            m_screen->Set_Dirty(false);
            m_screen->close();
        }
        m_screen.reset();
        m_conn.reset();
        m_env.reset();
    }

    std::unique_ptr<TestDataFolder> m_env;
    std::unique_ptr<Connection> m_conn;
    std::unique_ptr<T> m_screen;
};
