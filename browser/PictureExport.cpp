// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "PictureExport.h"

#include "Background.h"
#include "FileTexts.h"
#include "Workspace.h"

#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/drawing/PicturePlan.h>

#include <QBuffer>
#include <QRegularExpression>

namespace rvopen::browser {

using namespace toolkit;

namespace {

constexpr int s_size = 512;

/// Empty for what was written, or was stopped.
QString draw(const PicturePlan& plan, const QString& file, const std::atomic<bool>& stop,
             bool& isWritten)
{
    const QImage picture = plan.Draw(&stop);
    if (picture.isNull())
        return QString();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    isWritten = WriteFile(bytes, file);
    return isWritten ? QString() : messageOf(WriteError{file, LastWriteError()});
}

} // namespace

PictureExport::PictureExport(Workspace& workspace, const QString& folder,
                             const QVector<ListedPreset>& presets, QObject* parent)
    : QObject(parent)
    , m_workspace(workspace)
    , m_folder(folder)
    , m_presets(presets)
    , m_stop(std::make_shared<std::atomic<bool>>(false))
{
}

PictureExport::~PictureExport()
{
    stop();
}

void PictureExport::start()
{
    next();
}

void PictureExport::stop()
{
    *m_stop = true;
}

int PictureExport::count() const
{
    return int(m_presets.size());
}

int PictureExport::done() const
{
    return m_done;
}

void PictureExport::next()
{
    Q_EMIT progressed();
    if (m_done == count() || *m_stop) {
        Q_EMIT finished(m_written, QString());
        return;
    }
    const ListedPreset preset = m_presets[m_done++];
    widgets::PresetModel& model = m_workspace.presets();
    const OpenPreset opened = model.Open(model.IndexOf(preset.file, preset.path));
    if (!opened) {
        QMetaObject::invokeMethod(this, &PictureExport::next, Qt::QueuedConnection);
        return;
    }
    PictureWish wish;
    wish.size = s_size;
    struct Result {
        bool isWritten = false;
        QString problem;
    };
    inBackground(
        this,
        [plan = PicturePlan::Drawn(opened.element, preset.file, m_workspace.folders(), wish),
         file = freeName(preset), stop = m_stop] {
            Result result;
            result.problem = draw(plan, file, *stop, result.isWritten);
            return result;
        },
        [this](const Result& result) {
            m_written += result.isWritten ? 1 : 0;
            if (!result.problem.isEmpty()) {
                Q_EMIT finished(m_written, result.problem);
                return;
            }
            next();
        });
}

QString PictureExport::freeName(const ListedPreset& preset) const
{
    QString name = preset.refName.isEmpty() ? preset.name : preset.refName;
    // What no system has trouble with.
    name.replace(QRegularExpression(QStringLiteral("[/\\\\:*?\"<>|\\x00-\\x1f]")),
                 QStringLiteral("_"));
    if (name.isEmpty() || name.startsWith(QLatin1Char('.')))
        name.prepend(preset.kind);
    return freePath(m_folder, name, QStringLiteral("png"));
}

} // namespace rvopen::browser
