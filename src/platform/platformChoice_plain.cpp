#include "platform/platformChoice.h"

void choosePlatform(int, char *[]) {}
