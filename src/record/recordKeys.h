#pragma once

#include "record/RunRecord.h"

// The keys of a record's JSON (docs/record.md), once for its writer and its reader.

constexpr const char *recordSchemaKey = "schema";
/// Durations stand in a record as milliseconds.
constexpr double recordMicrosecondsPerMs = 1000;

/// The keys of a kind of value, for writing and reading alike: `visit` calls `key(name, field)` for each.
template <class Value>
struct RecordKeys;

template <>
struct RecordKeys<CollectedFile>
{
    template <class File, class Key>
    static void visit(File &file, Key &key)
    {
        key("name", file.name);
        key("size", file.size);
        key("sha256", file.sha256);
    }
};

template <>
struct RecordKeys<Limit>
{
    template <class LimitValue, class Key>
    static void visit(LimitValue &limit, Key &key)
    {
        key("least", limit.least);
        key("most", limit.most);
        key("oneOf", limit.oneOf);
    }
};

template <>
struct RecordKeys<Measurement>
{
    template <class MeasurementValue, class Key>
    static void visit(MeasurementValue &measurement, Key &key)
    {
        key("name", measurement.name);
        key("value", measurement.value);
        key("unit", measurement.unit);
        key("limit", measurement.limit);
    }
};

template <>
struct RecordKeys<RequestEnd>
{
    template <class Request, class Key>
    static void visit(Request &request, Key &key)
    {
        key("end", request.kind);
        key("code", request.code);
        key("attempts", request.attempts);
    }
};

template <>
struct RecordKeys<ItemRecord>
{
    template <class Item, class Key>
    static void visit(Item &item, Key &key)
    {
        key("key", item.key);
        key("number", item.number);
        key("name", item.name);
        key("verdict", item.verdict);
        key("message", item.message);
        key("detail", item.detail);
        key("durationMs", item.duration);
        key("request", item.request);
        key("measurements", item.measurements);
        key("files", item.files);
    }
};

template <>
struct RecordKeys<ComponentRecord>
{
    template <class Component, class Key>
    static void visit(Component &component, Key &key)
    {
        key("id", component.id);
        key("key", component.key);
        key("name", component.name);
        key("verdict", component.verdict);
        key("durationMs", component.duration);
        key("items", component.items);
    }
};

template <>
struct RecordKeys<PlannedComponent>
{
    template <class Component, class Key>
    static void visit(Component &component, Key &key)
    {
        key("id", component.id);
        key("key", component.key);
        key("items", component.items);
    }
};

template <>
struct RecordKeys<StationRecord>
{
    template <class Station, class Key>
    static void visit(Station &station, Key &key)
    {
        key("name", station.name);
        key("location", station.location);
    }
};

template <>
struct RecordKeys<CameraRecord>
{
    template <class Camera, class Key>
    static void visit(Camera &camera, Key &key)
    {
        key("mac", camera.mac);
        key("wifiName", camera.wifiName);
        key("link", camera.link);
        key("firmware", camera.firmware);
    }
};

template <>
struct RecordKeys<RunRecord>
{
    template <class Run, class Key>
    static void visit(Run &run, Key &key)
    {
        key("id", run.id);
        key("programVersion", run.programVersion);
        key("station", run.station);
        key("operator", run.operatorName);
        key("batch", run.batch);
        key("serial", run.serial);
        key("camera", run.camera);
        key("begin", run.begin);
        key("end", run.end);
        key("durationMs", run.duration);
        key("plan", run.plan);
        key("outcome", run.outcome);
        key("reason", run.reason);
        key("components", run.components);
    }
};
