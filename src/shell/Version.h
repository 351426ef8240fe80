#ifndef TORNIK_SHELL_VERSION_H
#define TORNIK_SHELL_VERSION_H

/** The version that the program shows. */
constexpr char TornikVersion[] = "2.6b1";

#endif
