// The packet codec and its checksums, Boost.CRC over the same bytes, and memcpy as the floor of both.

#include "camera/codec/KestDataPacket.h"
#include "camera/codec/PacketCodec.h"

#include <array>
#include <benchmark/benchmark.h>
#include <boost/crc.hpp>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {
constexpr int blockSize = 1024;

using Crc16 = boost::crc_optimal<16, 0x8005, 0xFFFF, 0xFFFF, true, true>;

std::vector<std::uint8_t> someBytes(std::int64_t size)
{
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    std::uint32_t value = 12345;
    for (std::uint8_t &byte : bytes) {
        value = value * 1664525U + 1013904223U;
        byte = static_cast<std::uint8_t>(value >> 24U);
    }
    return bytes;
}

/// What one frame costs on its way: encoded by the sender, checked and parsed by the receiver.
void frame(benchmark::State &state)
{
    KestDataPacket packet;
    packet.len = static_cast<std::uint16_t>(state.range(0));
    const auto payload = someBytes(static_cast<std::int64_t>(packet.data.size()));
    std::memcpy(packet.data.data(), payload.data(), payload.size());
    KestDataPacket received;
    std::array<std::uint8_t, 1024> wire{};
    for ([[maybe_unused]] const auto &turn : state) {
        int length = 0;
        benchmark::DoNotOptimize(packet.data.data());
        dataPacket2CharArray(packet, wire.data(), &length);
        benchmark::ClobberMemory();
        if (!packetCheck(wire.data(), length)) {
            state.SkipWithError("the frame is damaged");
            return;
        }
        parsePacket(wire.data(), length, &received);
        benchmark::DoNotOptimize(received.data.data());
    }
}

/// The checksums of such a frame alone: the receiver checks what the sender has stored.
void boostFrame(benchmark::State &state)
{
    auto bytes = someBytes(state.range(0));
    for ([[maybe_unused]] const auto &turn : state) {
        benchmark::DoNotOptimize(bytes.data());
        benchmark::ClobberMemory();
        Crc16 sent;
        sent.process_bytes(bytes.data(), bytes.size());
        bytes[6] = static_cast<std::uint8_t>(sent.checksum() >> 8U);
        bytes[7] = static_cast<std::uint8_t>(sent.checksum() & 0xFFU);
        benchmark::ClobberMemory();
        Crc16 received;
        received.process_bytes(bytes.data(), bytes.size());
        benchmark::DoNotOptimize(received.checksum());
    }
}

/// The copies of such a frame alone.
void memcpyFrame(benchmark::State &state)
{
    const auto bytes = someBytes(state.range(0));
    std::array<std::uint8_t, 1024> copy{};
    for ([[maybe_unused]] const auto &turn : state) {
        std::memcpy(copy.data(), bytes.data(), bytes.size());
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
        std::memcpy(copy.data(), bytes.data(), bytes.size());
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
}

template <class Checksum>
void measureBlock(benchmark::State &state, Checksum checksum)
{
    auto bytes = someBytes(blockSize);
    for ([[maybe_unused]] const auto &turn : state) {
        benchmark::DoNotOptimize(bytes.data());
        benchmark::ClobberMemory();
        benchmark::DoNotOptimize(checksum(bytes));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * blockSize);
}

void crc16(benchmark::State &state)
{
    measureBlock(
        state, [](auto &bytes) { return mapi_eeprom_crc16(bytes.data(), static_cast<unsigned short>(bytes.size())); });
}

void boostCrc16(benchmark::State &state)
{
    measureBlock(state, [](const auto &bytes) {
        Crc16 crc;
        crc.process_bytes(bytes.data(), bytes.size());
        return crc.checksum();
    });
}

void crc32(benchmark::State &state)
{
    measureBlock(state,
                 [](auto &bytes) { return mapi_eeprom_crc32(bytes.data(), static_cast<unsigned>(bytes.size())); });
}

void boostCrc32(benchmark::State &state)
{
    measureBlock(state, [](const auto &bytes) {
        boost::crc_32_type crc;
        crc.process_bytes(bytes.data(), bytes.size());
        return crc.checksum();
    });
}

void frameSizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(12)->Arg(64)->Arg(1023);
}

BENCHMARK(frame)->Apply(frameSizes);
BENCHMARK(boostFrame)->Apply(frameSizes);
BENCHMARK(memcpyFrame)->Apply(frameSizes);
BENCHMARK(crc16);
BENCHMARK(boostCrc16);
BENCHMARK(crc32);
BENCHMARK(boostCrc32);
} // namespace
