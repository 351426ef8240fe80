#ifndef TORNIK_TESTS_DIALOGS_DASHBOARD_H
#define TORNIK_TESTS_DIALOGS_DASHBOARD_H

#include "shell/CTranslators.h"
#include "shell/MainDialogFixture.h"

#include <QLocale>

/** The main dialog with a raceway that can switch power, in a language. */
class Dashboard
{
public:
    explicit Dashboard(const QString& language)
        : m_translators(QLocale(language), {TORNIK_BIN_DIR "/languages"})
    {
        QLocale::setDefault(QLocale(language));
        m_fixture = std::make_unique<MainDialogFixture>();
        CRaceway raceway = racewayWithTracks(2);
        raceway.pwrOffFeatureAvailable = true;
        m_fixture->setRaceway(raceway);
    }

    ~Dashboard() { QLocale::setDefault(QLocale::c()); }

    MainDialogFixture& operator*() const { return *m_fixture; }
    MainDialogFixture* operator->() const { return m_fixture.get(); }

private:
    Q_DISABLE_COPY(Dashboard)

    CTranslators m_translators;
    std::unique_ptr<MainDialogFixture> m_fixture;
};

#endif
