// `ftpDownLoad()` to disk, without a peer: `measure.py` runs curl in turn with it. The files lie in the root of the
// emulated camera's FTP server.
//
//   ftpBench FILE FOLDER [GOOGLE BENCHMARK OPTIONS]

#include "ftp/FtpDownLoad.h"
#include "ftp/FtpDownLoadFace.h"
#include "micro/session.h"
#include "peers/camera.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <QFileInfo>
#include <QString>

namespace {
void download(benchmark::State &state, const QString &name, const QString &folder)
{
    const QString url = QStringLiteral("ftp://%1/%2").arg(QLatin1String(camera::address), name);
    const QString localFile = folder + QLatin1Char('/') + name;
    for ([[maybe_unused]] const auto &turn : state) {
        if (FtpDownLoadFace::Get()->ftpDownLoad(url, localFile) != 0) {
            state.SkipWithError("download failed");
            return;
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * QFileInfo(localFile).size());
}
} // namespace

int main(int argc, char *argv[])
{
    if (argc < 3) {
        std::fputs("usage: ftpBench FILE FOLDER [GOOGLE BENCHMARK OPTIONS]\n", stderr);
        return EXIT_FAILURE;
    }
    const QString name = QString::fromLocal8Bit(argv[1]);
    const QString folder = QString::fromLocal8Bit(argv[2]);
    benchmark::RegisterBenchmark("download", download, name, folder)->UseRealTime()->Iterations(1);
    argv[2] = argv[0];
    int left = argc - 2;
    return runBenchmarksBesideSession(left, argv + 2, [] {
        FtpDownLoad::Get();
        FtpDownLoadFace::Get();
    });
}
