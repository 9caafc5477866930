#pragma once

class QAbstractSocket;

/// Sends one byte as TCP urgent data (RFC 9293, 3.8.5), past what the socket still holds. False when it could not, or
/// where the system's sockets have no such thing: then nothing is sent, for as ordinary data it would mean something
/// else.
bool sendUrgent(QAbstractSocket *socket, unsigned char byte);
