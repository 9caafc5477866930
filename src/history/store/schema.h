#pragma once

#include "history/address/StoreAddress.h"

#include <QString>
#include <QStringList>
#include <vector>

// The tables of a store, the same for both engines.
//
// The truth about a run is its record (`record.body`, see `RecordPacker`); everything else is taken from it, so that
// questions can be answered without opening records, and is written in the same transaction. Texts in these other
// columns are cut to `longestText` characters, and a U+0000 in them is a U+FFFD. They are never null: what is not known
// is an empty text.
//
//   run          One row a run. `id` is its key; `begin_ms` stands before it in the primary key: runs lie in the order
//                of time. begin_ms, end_ms: milliseconds since 1970 UTC; offset_s: of the record's own clock from
//                UTC; day: "2026-11-21" by that clock; outcome: as in the record ("passed", "failed", "stopped",
//                "error"); mac: in capital letters; failed_items: how many items failed or warned;
//                first_finding: the key of the first item that failed, else of the first that warned.
//   record       The whole record of a run.
//   finding      One row an item that failed or warned: verdict "failed" or "warning"; place: the item's place in the
//                run, from 0; message: its text; measurement, value, limits: the first measurement that was not within
//                its limit, as people write it, else empty.
//   series       What a number of `measurement` means: item key, measurement's name and unit. The id is made from these
//                three (`seriesId`) and is the same in every store.
//   measurement  One row a measurement. number is null for a text, text is empty for a number; place: running number
//                within the run; least, most: the limit of that run, null where there was none.
//   camera       One row a MAC address (none for runs without one): how many runs, the last of them; and the cohort:
//                where and when the first run that judged the camera (passed or failed) was made, and how the first
//                and the last of these ended (1 passed, 0 failed, null none yet). First and last go by begin_ms.
//   tally        Sums over the runs of a day, station, batch and firmware. cameras, first_passed, final_passed count
//                cameras where their first judged run was made: how many there are, how many passed in that run, and
//                how many passed in their last one. Sums over any set of rows give yields: a camera is counted once.
//   item_tally   Likewise for an item: in how many runs it was run, failed and warned.
//   unsent       The runs that the server does not have yet. In a server's own store it is empty.
//   state        Notes of the program: see `StoreState`.
//   schema_step  The steps of the schema that this store has gone through.
//
// A step is never changed once it is released; what has to become different is a further step at the end.

struct SchemaStep
{
    int number; ///< from 1, without gaps
    /// SQL with the engine's words for $id (a UUID), $bytes, $real, $key (a text that is compared byte by byte) and
    /// $clustered (rows lie in the order of the primary key).
    std::vector<const char *> statements;
};

const std::vector<SchemaStep> &schemaSteps();

/// `statement` in the words of `engine`.
QString inWordsOf(StoreAddress::Engine engine, const char *statement);

/// The most characters of a text that `run` and its neighbours keep: an index of PostgreSQL has to hold three of them.
inline constexpr int longestText = 200;
