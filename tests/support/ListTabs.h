#ifndef TORNIK_TESTS_SUPPORT_LISTTABS_H
#define TORNIK_TESTS_SUPPORT_LISTTABS_H

/** The controls of a list in the settings, by their object names. */
struct ListTab
{
    const char* tree;
    const char* newButton;
    const char* editButton;
    const char* deleteButton;
    const char* importButton;
    const char* exportButton;
    const char* codeButton;
    const char* codesButton;
    const char* nameField; ///< of the editor
};

/** What the tab of the cars and that of the drivers differ in. */
namespace ListTabs {

inline constexpr ListTab Cars{"carTree",    "newCar",    "editCar",     "deleteCar", "importCars",
                              "exportCars", "qrCodeCar", "qrCodesCars", "carName"};
inline constexpr ListTab Drivers{"driverTree",   "newDriver",      "editDriver",
                                 "deleteDriver", "importDrivers",  "exportDrivers",
                                 "qrCodeDriver", "qrCodesDrivers", "driverName"};

} // namespace ListTabs

#endif
