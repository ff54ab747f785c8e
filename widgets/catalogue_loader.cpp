// SPDX-License-Identifier: MIT
#include "catalogue_loader.h"

#include <QMetaObject>
#include <exception>

#include "devctrl/mngr/device_mngr.h"

namespace devctrl {

using tarn::vyxpn::TarnDeviceMngr;

CatalogueLoader::CatalogueLoader(QObject* parent) : QObject(parent) {}

CatalogueLoader::~CatalogueLoader() {
    m_cancel = true;
    if (m_worker.joinable()) {
        m_worker.join();
        tarn::vyxpn::setLoadProgressHandler(m_previousHandler);
    }
}

void CatalogueLoader::start() {
    if (m_worker.joinable())
        return;
    if (TarnDeviceMngr::m_pMngr) {
        QMetaObject::invokeMethod(
            this, [this] { emit finished(false, QString()); }, Qt::QueuedConnection);
        return;
    }
    m_cancel = false;
    // The handler runs on the worker: it only posts to this thread, and its
    // answer is how a cancel reaches the load.
    m_previousHandler =
        tarn::vyxpn::setLoadProgressHandler([this](const tarn::vyxpn::LoadProgress& step) {
            const QString family =
                QString::fromStdString(step.family.empty() ? step.pm : step.family);
            const int index = step.index;
            const int count = step.count;
            QMetaObject::invokeMethod(
                this, [this, index, count, family] { emit progress(index, count, family); },
                Qt::QueuedConnection);
            return !m_cancel.load();
        });
    m_worker = std::thread([this] {
        bool cancelled = false;
        QString error;
        try {
            // A broken family is left out rather than failing the whole
            // dialog; the others remain choosable.
            TarnDeviceMngr* mngr =
                TarnDeviceMngr::getInstance(TarnDeviceMngr::BrokenFamilies::Skip);
            cancelled = mngr->loadCancelled();
        } catch (const std::exception& e) {
            error = QString::fromUtf8(e.what());
        }
        QMetaObject::invokeMethod(
            this, [this, cancelled, error] { workerDone(cancelled, error); }, Qt::QueuedConnection);
    });
}

void CatalogueLoader::cancel() {
    m_cancel = true;
}

void CatalogueLoader::workerDone(bool cancelled, const QString& error) {
    m_worker.join();
    tarn::vyxpn::setLoadProgressHandler(m_previousHandler);
    m_previousHandler = nullptr;
    if (cancelled) {
        delete TarnDeviceMngr::m_pMngr;  // the destructor clears m_pMngr
    }
    emit finished(cancelled, error);
}

}  // namespace devctrl
