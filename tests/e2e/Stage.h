#pragma once

#include "Story.h"

#include <map>
#include <vector>

/// Plays stories side by side, each in a network of its own, because nearly all of their time is waiting; where the
/// system allows no such networks, one after the other.
class Stage
{
public:
    /// Plays all stories; if the test's command line names single rows ("function:row"), only those.
    explicit Stage(std::vector<Story> stories);

    const std::vector<Story> &stories() const { return m_stories; }
    /// Adds one row for each story, with the story's number.
    void addRows() const;
    /// Compares the outcome of the current row's story.
    void compareRow() const;

private:
    void playAll();

    std::vector<Story> m_stories;
    std::vector<StoryOutcome> m_outcomes;
};

/// Calls `work(i)` for each i below `count`, up to `width` at a time, each on a thread of its own in a private network;
/// one after the other in the common network where private ones are forbidden.
void inPrivateNetworks(int count, int width, const std::function<void(int)> &work);
