#ifndef TORNIK_TESTS_SUPPORT_BOUNDPROCESS_H
#define TORNIK_TESTS_SUPPORT_BOUNDPROCESS_H

#include <QProcess>

#include <csignal>
#include <sys/prctl.h>

/** A process that dies with the test, however that ends. */
class CBoundProcess : public QProcess
{
protected:
    void setupChildProcess() override { prctl(PR_SET_PDEATHSIG, SIGKILL); }
};

#endif
