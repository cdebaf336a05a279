#pragma once

#include "bench/BareClient.h"
#include "bench/Case.h"
#include "firebird/FirebirdAdapter.h"
#include "launch/ContextoExecucao.h"

#include <QTemporaryDir>
#include <optional>

namespace vorta::bench {

/// The outside world of a measurement: nobody looks, but progress is heard.
class SilentPlatform : public screen::Platform {
  public:
    explicit SilentPlatform(const QString& home) : home_(home) {}

    screen::Answer messageBox(const screen::Box&) override { return screen::Answer::OK; }
    void runModal(screen::Screen&) override {}
    void openAddress(const QString&) override {}
    void progress(qint64 done, qint64 total) override {
        if (onProgress)
            onProgress(done, total);
    }
    QString home() const override { return home_; }

    std::function<void(qint64 done, qint64 total)> onProgress;

  private:
    QString home_;
};

/// An installation of its own with invented persons, seen by the register's connection and by the bare client. Its
/// writes are not forced: both sides would wait for the disk alike, and a busy disk would hide all the rest.
class ScreenBench : public std::enable_shared_from_this<ScreenBench> {
    QTemporaryDir folder_; // goes last, when every connection is closed

  public:
    explicit ScreenBench(int persons);

    /// A screen's work against the very statements that it sends, `steps` times the unit in one round.
    Case work(const QString& name, const QString& unit, int steps, const std::function<void()>& ours, double limit,
              int rounds);

    std::unique_ptr<BareClient> bare;
    SilentPlatform platform{folder_.path()};
    screen::Program program{platform};

  private:
    std::optional<QList<QByteArray>> heard_;

  public:
    ContextoExecucao contexto{program, [](data::Engine) { return data::MakeFirebirdAdapter(); },
                              [this](const QString& text) {
                                  if (heard_)
                                      *heard_ += text.toUtf8();
                              }};
};

} // namespace vorta::bench
