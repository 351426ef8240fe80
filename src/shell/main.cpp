#include "shell/CCommandLineParameters.h"
#include "shell/CKelmoMain.h"
#include "shell/CTerminationSignals.h"
#include "shell/CTranslators.h"
#include "shell/Version.h"
#include "sound/CSoundDevice.h"

#include <QApplication>
#include <QLocale>

#include <cstdio>
#include <cstdlib>

namespace {

int runProgram(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tornik");
    QApplication::setOrganizationName("Tornik");
    QApplication::setApplicationVersion(TornikVersion);

    const CCommandLineParameters parameters;
    if (!parameters.language().isEmpty())
        QLocale::setDefault(QLocale(parameters.language()));

    const CTranslators translators{QLocale()};

    const CTerminationSignals signalsOfSystem;
    QObject::connect(&signalsOfSystem, &CTerminationSignals::terminationRequested, &application,
                     &QApplication::quit);

    const CKelmoMain kelmoMain(&application, parameters);
    QApplication::setQuitOnLastWindowClosed(true);
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[])
{
    const int result = runProgram(argc, argv);
    if (CSoundDevice::isOneLeftBehind()) {
        std::fflush(nullptr);
        std::_Exit(result); // all is stored and closed by now
    }
    return result;
}
