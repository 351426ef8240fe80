#include "shell/CCommandLineParameters.h"
#include "shell/CTranslationCatalogue.h"

#include <QApplication>
#include <QLocale>
#include <QTranslator>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tornik");
    QApplication::setOrganizationName("Tornik");
    QApplication::setApplicationVersion("2.6b1");

    const CCommandLineParameters parameters;
    if (!parameters.language().isEmpty())
        QLocale::setDefault(QLocale(parameters.language()));

    QTranslator translator;
    CTranslationCatalogue::load(translator, QLocale());
    QApplication::installTranslator(&translator);
    return 0;
}
