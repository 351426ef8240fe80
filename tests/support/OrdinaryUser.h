#ifndef TORNIK_TESTS_SUPPORT_ORDINARYUSER_H
#define TORNIK_TESTS_SUPPORT_ORDINARYUSER_H

#include <QtGlobal>

#include <unistd.h>

/** As long as it lives the permissions of files hold, also where the tests are run by root. */
class OrdinaryUser
{
public:
    OrdinaryUser() : m_before(geteuid())
    {
        if (m_before == Root && seteuid(Nobody) != 0)
            qFatal("root can't become an ordinary user");
    }
    ~OrdinaryUser()
    {
        if (seteuid(m_before) != 0)
            qFatal("the user can't become what he was");
    }

private:
    Q_DISABLE_COPY(OrdinaryUser)

    static constexpr uid_t Root = 0;
    static constexpr uid_t Nobody = 65534;

    uid_t m_before;
};

#endif
