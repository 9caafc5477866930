#pragma once

class QAbstractSocket;

/// Has a connected socket notice within about 3 seconds that its peer has vanished without a word: it then reports an
/// error and its end. Where the system cannot be told so short a time, it is the system's own, often hours.
/// False when the socket could not be set up, which changes nothing else.
bool watchPeer(QAbstractSocket *socket);
