#ifndef TORNIK_NETWORK_TCPKEEPALIVE_H
#define TORNIK_NETWORK_TCPKEEPALIVE_H

#include <QtGlobal>

/**
 * Lets the system ask whether the other side of a TCP connection is still there while nothing comes
 * from it. One that is gone without a word ends the connection with an error, some 25 seconds later.
 * @param descriptor of a connected socket; anything else is left alone
 */
void watchTcpPeer(qintptr descriptor);

#endif
