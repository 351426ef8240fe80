#include "data/CCarList.h"
#include "dialogs/CarEditorFixture.h"
#include "support/DatabaseFile.h"

namespace {

bool isShown(const DialogUser& user, int index)
{
    const bool title = user.control<QLabel>(freeFieldTitle(index))->isVisible();
    const bool field = user.control(freeField(index))->isVisible();
    if (title != field)
        QTest::qFail("the title and its field are not shown together", __FILE__, __LINE__);
    return field;
}

QString title(const DialogUser& user, int index)
{
    return user.control<QLabel>(freeFieldTitle(index))->text();
}

/** Every key of the store with its value. */
QVariantMap storedSettings()
{
    const QSettings store("Tornik", "Tornik");
    QVariantMap values;
    for (const QString& key : store.allKeys())
        values.insert(key, store.value(key));
    return values;
}

} // namespace

/** The free fields of the car editor and their configuration. */
class tst_CCarEditorFreeFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void firstThreeAreShownToANewUser();
    void storedConfigurationIsAppliedAtEachOpening();
    void acceptedConfigurationIsStoredAndAppliedAtOnce();
    void cancellingTheConfigurationLeavesSettingsAndFormUnchanged();
    void cancellingTheFirstConfigurationStoresNothing();
    void configurationKeepsWhatIsTypedInTheForm();
    void hidingAFieldKeepsItsTextInTheDatabase();
    void windowGrowsAndShrinksWithTheFields();
    void aLongTitleDoesNotWidenTheWindow();
    void aTitleIsPlainText();
};

void tst_CCarEditorFreeFields::init()
{
    QSettings("Tornik", "Tornik").clear();
}

void tst_CCarEditorFreeFields::firstThreeAreShownToANewUser()
{
    CCarEditorDlg editor;
    for (const Edit edit : {NewCar, EditCar}) {
        CCar car = porsche();
        open(editor, edit, car, [](const EditorUser& user) {
            for (int index = 0; index < 10; ++index)
                QCOMPARE(isShown(user, index), index < 3);
            QCOMPARE(title(user, 0), QString("Farbe"));
            QCOMPARE(title(user, 1), QString("Reifen"));
            QCOMPARE(title(user, 2), QString("Modifikationen"));
        });
    }
}

void tst_CCarEditorFreeFields::storedConfigurationIsAppliedAtEachOpening()
{
    CCarEditorDlg editor;
    for (const int rest : {0, 1}) {
        showFreeFields([rest](int index) { return index % 2 == rest; });
        for (const Edit edit : {NewCar, EditCar}) {
            CCar car = porsche();
            open(editor, edit, car, [rest](const DialogUser& user) {
                for (int index = 0; index < 10; ++index) {
                    QCOMPARE(isShown(user, index), index % 2 == rest);
                    QCOMPARE(title(user, index), QStringLiteral("Titel %1").arg(index));
                }
            });
        }
    }
}

void tst_CCarEditorFreeFields::acceptedConfigurationIsStoredAndAppliedAtOnce()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    open(
        editor, EditCar, car,
        [](const EditorUser& user) {
            const auto work = [](const DialogUser& config) {
                QVERIFY(config.value("showFreeField2").toBool());
                config.enter("showFreeField2", false);
                config.enter("titleFreeField0", "Lackierung");
                config.enter("showFreeField9", true);
                config.enter("titleFreeField9", "Achse 9");
            };
            user.configure(work, "okButton");
            QCOMPARE(title(user, 0), QString("Lackierung"));
            QVERIFY(!isShown(user, 2));
            QVERIFY(isShown(user, 9));
            QCOMPARE(title(user, 9), QString("Achse 9"));
            CCarEditorConfig stored;
            stored.read();
            QVERIFY(stored.showFreeField(9) && !stored.showFreeField(2));
            QCOMPARE(stored.titleFreeField(0), QString("Lackierung"));
            user.configure(
                [](const DialogUser& config) {
                    QVERIFY(config.control("showFreeField0")->hasFocus());
                    QCOMPARE(config.value("titleFreeField9").toString(), QString("Achse 9"));
                },
                "cancelButton");
        },
        "cancelButton");
}

void tst_CCarEditorFreeFields::cancellingTheConfigurationLeavesSettingsAndFormUnchanged()
{
    showFreeFields([](int index) { return index < 5; });
    const QVariantMap before = storedSettings();
    QVERIFY(!before.isEmpty());
    CCarEditorDlg editor;
    CCar car = porsche();
    open(editor, EditCar, car, [](const EditorUser& user) {
        user.enter("freeField1", "getippt");
        const auto work = [](const DialogUser& config) {
            config.enter("showFreeField1", false);
            config.enter("titleFreeField0", "Lackierung");
            config.enter("showFreeField9", true);
        };
        user.configure(work, "cancelButton");
        for (int index = 0; index < 10; ++index) {
            QCOMPARE(isShown(user, index), index < 5);
            QCOMPARE(title(user, index), QStringLiteral("Titel %1").arg(index));
        }
        QCOMPARE(user.value("freeField1").toString(), QString("getippt"));
    });
    QCOMPARE(storedSettings(), before);
}

void tst_CCarEditorFreeFields::cancellingTheFirstConfigurationStoresNothing()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    open(editor, EditCar, car,
         [](const EditorUser& user) { user.configure([](const DialogUser&) {}, "cancelButton"); });
    QVERIFY(storedSettings().isEmpty());
}

void tst_CCarEditorFreeFields::configurationKeepsWhatIsTypedInTheForm()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    open(editor, EditCar, car, [](const EditorUser& user) {
        user.enter("freeField0", "rot");
        user.enter("chassis", "Plafit");
        user.configure([](const DialogUser& config) { config.enter("showFreeField0", false); }, "okButton");
    });
    QCOMPARE(car.freeField(0), QString("rot"));
    QCOMPARE(car.chassis(), QString("Plafit"));
}

void tst_CCarEditorFreeFields::hidingAFieldKeepsItsTextInTheDatabase()
{
    ScratchDirectory directory;
    {
        CCarList list;
        list.removeAll();
        list.updateCar(0, porsche());
        CCarEditorDlg editor;
        CCar car = list.carAt(0);
        open(editor, EditCar, car, [](const EditorUser& user) {
            user.configure([](const DialogUser& config) { config.enter("showFreeField1", false); },
                           "okButton");
            user.enter("freeField0", "rot");
        });
        list.updateCar(0, car);
    }
    const CCar stored = CCarList().carAt(0);
    QCOMPARE(stored.freeField(0), QString("rot"));
    for (int index = 1; index < 10; ++index)
        QCOMPARE(stored.freeField(index), QStringLiteral("Wert %1").arg(index));
    closeDatabase();
}

void tst_CCarEditorFreeFields::windowGrowsAndShrinksWithTheFields()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    const auto show = [](const EditorUser& user, bool on) {
        const auto work = [on](const DialogUser& config) {
            for (int index = 0; index < 10; ++index)
                config.enter("showFreeField" + QByteArray::number(index), on);
        };
        user.configure(work, "okButton");
    };
    open(editor, EditCar, car, [&](const EditorUser& user) {
        const int withThree = editor.height();
        show(user, true);
        QTRY_VERIFY(editor.height() > withThree + 100);
        const int withTen = editor.height();
        show(user, false);
        QTRY_VERIFY(editor.height() < withThree);
        show(user, true);
        QTRY_COMPARE(editor.height(), withTen);
    });
}

void tst_CCarEditorFreeFields::aLongTitleDoesNotWidenTheWindow()
{
    CCarEditorConfig config;
    config.read();
    config.setTitleFreeField(0, QString(2000, 'W'));
    config.write();
    CCarEditorDlg editor;
    CCar car;
    open(editor, NewCar, car, [&](const EditorUser& user) {
        QCOMPARE(title(user, 0), QString(2000, 'W'));
        QVERIFY2(editor.width() < 600, qPrintable(QString::number(editor.width())));
    });
}

void tst_CCarEditorFreeFields::aTitleIsPlainText()
{
    CCarEditorConfig config;
    config.read();
    config.setTitleFreeField(0, "<b>Rad & Achse</b>");
    config.write();
    CCarEditorDlg editor;
    CCar car;
    open(editor, NewCar, car, [](const EditorUser& user) {
        const auto* label = user.control<QLabel>(freeFieldTitle(0));
        QCOMPARE(label->textFormat(), Qt::PlainText);
        QVERIFY(!label->buddy()); // with one, the ampersand would not show
    });
}

QTEST_MAIN(tst_CCarEditorFreeFields)
#include "tst_CCarEditorFreeFields.moc"
