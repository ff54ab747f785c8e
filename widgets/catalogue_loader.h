// SPDX-License-Identifier: MIT
#pragma once
// Loads the process-wide device manager on a worker thread, so that a window
// stays responsive while a large installation is read. Progress and the end
// of the load arrive as signals on the thread that owns the loader.

#include <QObject>
#include <QString>
#include <atomic>
#include <thread>

#include "devctrl/mngr/load_progress.h"

namespace devctrl {

class CatalogueLoader : public QObject {
    Q_OBJECT
  public:
    explicit CatalogueLoader(QObject* parent = nullptr);
    // Stops a running load and waits for the worker.
    ~CatalogueLoader() override;

    // Starts the load, or reports at once (still through the event loop)
    // when the manager is already loaded.
    void start();
    // Asks the load to stop before the next family; finished() follows.
    void cancel();
    bool isRunning() const { return m_worker.joinable(); }

  signals:
    void progress(int index, int count, const QString& family);
    // `cancelled` when cancel() stopped it: the partial manager is deleted
    // again, so that the next load starts afresh. `error` is empty on success.
    void finished(bool cancelled, const QString& error);

  private:
    void workerDone(bool cancelled, const QString& error);

    std::thread m_worker;
    std::atomic<bool> m_cancel{false};
    tarn::vyxpn::LoadProgressHandler m_previousHandler;
};

}  // namespace devctrl
