#include "history/store/schema.h"

#include <array>

namespace {
struct Word
{
    const char *placeholder;
    const char *sqlite;
    const char *postgreSql;
};

constexpr std::array words = {
    Word{"$id", "BLOB", "UUID"},
    Word{"$bytes", "BLOB", "BYTEA"},
    Word{"$real", "REAL", "DOUBLE PRECISION"},
    Word{"$key", "TEXT", "TEXT COLLATE \"C\""},
    Word{"$clustered", "WITHOUT ROWID", ""},
};
} // namespace

const std::vector<SchemaStep> &schemaSteps()
{
    static const std::vector<SchemaStep> steps = {
        {1,
         {
             "CREATE TABLE run (begin_ms BIGINT NOT NULL, id $id NOT NULL, offset_s INTEGER NOT NULL, "
             "day $key NOT NULL, end_ms BIGINT NOT NULL, duration_us BIGINT NOT NULL, outcome $key NOT NULL, "
             "mac $key NOT NULL, serial $key NOT NULL, station $key NOT NULL, location TEXT NOT NULL, "
             "batch $key NOT NULL, firmware $key NOT NULL, operator_name TEXT NOT NULL, wifi_name TEXT NOT NULL, "
             "link TEXT NOT NULL, program_version TEXT NOT NULL, reason TEXT NOT NULL, "
             "failed_items INTEGER NOT NULL, first_finding TEXT NOT NULL, PRIMARY KEY (begin_ms, id), UNIQUE (id)) "
             "$clustered",
             "CREATE INDEX run_by_mac ON run (mac, begin_ms)",
             "CREATE INDEX run_by_serial ON run (serial, begin_ms)",
             "CREATE INDEX run_by_station ON run (station, begin_ms)",
             "CREATE INDEX run_by_outcome ON run (outcome, begin_ms)",
             "CREATE INDEX run_by_batch ON run (batch, begin_ms)",
             "CREATE INDEX run_by_firmware ON run (firmware, begin_ms)",
             "CREATE TABLE record (run $id NOT NULL PRIMARY KEY, body $bytes NOT NULL)",
             "CREATE TABLE finding (item $key NOT NULL, begin_ms BIGINT NOT NULL, run $id NOT NULL, "
             "place INTEGER NOT NULL, verdict TEXT NOT NULL, message TEXT NOT NULL, measurement TEXT NOT NULL, "
             "value TEXT NOT NULL, limits TEXT NOT NULL, PRIMARY KEY (item, begin_ms, run, place)) $clustered",
             "CREATE TABLE series (id BIGINT NOT NULL PRIMARY KEY, item $key NOT NULL, name $key NOT NULL, "
             "unit TEXT NOT NULL)",
             "CREATE TABLE measurement (series BIGINT NOT NULL, begin_ms BIGINT NOT NULL, run $id NOT NULL, "
             "place INTEGER NOT NULL, number $real, text TEXT NOT NULL, least $real, most $real, "
             "PRIMARY KEY (series, begin_ms, run, place)) $clustered",
             "CREATE TABLE camera (mac $key NOT NULL PRIMARY KEY, runs BIGINT NOT NULL, last_begin_ms BIGINT, "
             "last_run $id, last_outcome TEXT, first_judged_ms BIGINT, first_day TEXT, first_station TEXT, "
             "first_batch TEXT, first_firmware TEXT, first_passed INTEGER, last_judged_ms BIGINT, "
             "final_passed INTEGER) $clustered",
             "CREATE TABLE tally (day $key NOT NULL, station $key NOT NULL, batch $key NOT NULL, "
             "firmware $key NOT NULL, runs BIGINT NOT NULL, passed BIGINT NOT NULL, failed BIGINT NOT NULL, "
             "stopped BIGINT NOT NULL, error BIGINT NOT NULL, duration_ms BIGINT NOT NULL, cameras BIGINT NOT NULL, "
             "first_passed BIGINT NOT NULL, final_passed BIGINT NOT NULL, "
             "PRIMARY KEY (day, station, batch, firmware)) $clustered",
             "CREATE TABLE item_tally (day $key NOT NULL, station $key NOT NULL, batch $key NOT NULL, "
             "firmware $key NOT NULL, item $key NOT NULL, ran BIGINT NOT NULL, failed BIGINT NOT NULL, "
             "warned BIGINT NOT NULL, PRIMARY KEY (day, station, batch, firmware, item)) $clustered",
             "CREATE TABLE unsent (begin_ms BIGINT NOT NULL, run $id NOT NULL, PRIMARY KEY (begin_ms, run)) "
             "$clustered",
             "CREATE TABLE state (name $key NOT NULL PRIMARY KEY, value TEXT NOT NULL) $clustered",
         }},
    };
    return steps;
}

QString inWordsOf(StoreAddress::Engine engine, const char *statement)
{
    QString text = QString::fromLatin1(statement);
    for (const Word &word : words) {
        text.replace(QLatin1String(word.placeholder),
                     QLatin1String(engine == StoreAddress::Engine::Sqlite ? word.sqlite : word.postgreSql));
    }
    return text;
}
