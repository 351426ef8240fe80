#ifndef TORNIK_SHELL_SYSTEMPOWER_H
#define TORNIK_SHELL_SYSTEMPOWER_H

/**
 * Asks the login manager of the system to power this machine off, whoever is logged in. Returns at
 * once and tells nothing: where the system refuses, or has no login manager, nothing happens.
 */
void powerMachineOff();

#endif
