#pragma once

/// What the tests' stopServices() and stopRun() saw.
struct StopRecord
{
    int calls = 0;
    int quitFlag = 0; ///< the facade's flag at the time of the last call
    int runs = 0;     ///< calls of stopRun() that found one
};

extern StopRecord stopRecord;
