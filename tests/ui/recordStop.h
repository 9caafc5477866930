#pragma once

/// What the tests' stopServices() saw.
struct StopRecord
{
    int calls = 0;
    int quitFlag = 0; ///< the facade's flag at the time of the last call
};

extern StopRecord stopRecord;
