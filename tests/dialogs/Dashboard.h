#ifndef TORNIK_TESTS_DIALOGS_DASHBOARD_H
#define TORNIK_TESTS_DIALOGS_DASHBOARD_H

#include "shell/CTranslationCatalogue.h"
#include "shell/MainDialogFixture.h"

#include <QTranslator>

/** The main dialog with a raceway that can switch power, in a language. */
class Dashboard
{
public:
    explicit Dashboard(const QString& language)
    {
        if (language != "de" &&
            CTranslationCatalogue::load(m_translator, QLocale(language), {TORNIK_BIN_DIR "/languages"}))
            QCoreApplication::installTranslator(&m_translator);
        m_fixture = std::make_unique<MainDialogFixture>();
        CRaceway raceway = racewayWithTracks(2);
        raceway.pwrOffFeatureAvailable = true;
        m_fixture->setRaceway(raceway);
    }

    MainDialogFixture& operator*() const { return *m_fixture; }
    MainDialogFixture* operator->() const { return m_fixture.get(); }

private:
    QTranslator m_translator;
    std::unique_ptr<MainDialogFixture> m_fixture;
};

#endif
