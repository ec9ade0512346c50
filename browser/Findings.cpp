// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Findings.h"

#include "Background.h"
#include "EditedFile.h"
#include "Workspace.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Load.h>

#include <QHeaderView>
#include <QStyle>

namespace rvopen::browser {

using namespace toolkit;

namespace {

/// What was found, without the documents, which are another thread's.
QVector<Finding> withoutElements(QVector<Finding> findings)
{
    for (Finding& finding : findings)
        finding.element = QDomElement();
    return findings;
}

} // namespace

Findings::Findings(Workspace& workspace, QWidget* parent)
    : QTreeWidget(parent)
    , m_workspace(workspace)
{
    setHeaderLabels({tr("Finding"), tr("Where"), tr("File")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAccessibleName(tr("Findings"));
    header()->setStretchLastSection(true);
    connect(this, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        Q_EMIT chosen(item->data(0, FileRole).toString(), item->data(0, PathRole).toString());
    });
}

Findings::~Findings()
{
    stop();
}

void Findings::check(const EditedFile& file)
{
    run({{file.file(), file.copy()}});
}

void Findings::check(const QStringList& files)
{
    QVector<Job> jobs;
    for (const QString& file : files)
        jobs.append({file, QDomDocument()});
    run(jobs);
}

void Findings::showLines(const QVector<Line>& lines)
{
    stop();
    clear();
    for (const Line& line : lines)
        add(line);
    resizeColumnToContents(Message);
}

void Findings::stop()
{
    if (!m_stop)
        return;
    *m_stop = true;
    m_stop.reset();
    Q_EMIT runningChanged(false);
}

bool Findings::isRunning() const
{
    return bool(m_stop);
}

int Findings::mend(EditedFile& file, const Folders& folders)
{
    const QDomDocument copy = file.copy();
    QVector<Finding> findings = Inspect(*Document::Of(file.file(), copy), LookAround(folders));
    const int mended = Mend(findings);
    const bool isDone =
        file.become(copy.documentElement(), file.dom().documentElement(), tr("Mend"));
    return isDone ? mended : 0;
}

void Findings::run(const QVector<Job>& jobs)
{
    stop();
    m_stop = std::make_shared<std::atomic<bool>>(false);
    Q_EMIT runningChanged(true);
    inBackground(
        this,
        [jobs, folders = m_workspace.folders(), stop = m_stop] {
            QVector<Finding> findings;
            if (*stop)
                return findings;
            const Surroundings surroundings = LookAround(folders);
            for (const Job& job : jobs) {
                if (*stop)
                    break;
                if (!job.dom.isNull()) {
                    findings += withoutElements(
                        Inspect(*Document::Of(job.file, job.dom), surroundings, stop.get()));
                    continue;
                }
                const Load load = LoadDocument(job.file);
                findings += load
                                ? withoutElements(Inspect(*load.document, surroundings, stop.get()))
                                : QVector<Finding>{FindingOf(load.error)};
            }
            return findings;
        },
        [this, stop = m_stop](const QVector<Finding>& findings) {
            if (stop != m_stop)
                return;
            QVector<Line> lines;
            for (const Finding& finding : findings)
                lines.append(
                    {finding.message, finding.path, finding.file, finding.rule->severity,
                     QStringLiteral("%1: %2").arg(QLatin1String(finding.rule->id),
                                                  QString::fromUtf8(finding.rule->advice))});
            showLines(lines);
        });
}

void Findings::add(const Line& line)
{
    auto* const item = new QTreeWidgetItem(this);
    item->setText(Message, line.message);
    item->setText(Where, line.path);
    item->setText(InFile, LastPathComponent(line.file));
    item->setToolTip(InFile, line.file);
    item->setToolTip(Message, line.advice);
    item->setData(0, FileRole, line.file);
    item->setData(0, PathRole, line.path);
    const QStyle::StandardPixmap icon =
        line.severity == Severity::Error     ? QStyle::SP_MessageBoxCritical
        : line.severity == Severity::Warning ? QStyle::SP_MessageBoxWarning
                                             : QStyle::SP_MessageBoxInformation;
    item->setIcon(Message, style()->standardIcon(icon));
    // Who hears instead of sees is told how much it matters, too.
    item->setData(Message, Qt::AccessibleTextRole,
                  SeverityName(line.severity) + QLatin1String(": ") + line.message);
}

} // namespace rvopen::browser
