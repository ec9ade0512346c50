// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/Thumbnails.h>

#include "LoneElements.h"
#include "Nodes.h"
#include "PictureWorkers.h"

#include <rvopen/RVOpenObserver.h>
#include <rvopen/toolkit/drawing/PicturePlan.h>

#include <QCache>
#include <QCryptographicHash>
#include <QDomNamedNodeMap>
#include <QHash>
#include <QMetaObject>
#include <QPainter>

#include <algorithm>
#include <atomic>
#include <deque>
#include <functional>
#include <iterator>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

namespace rvopen::widgets {

using namespace toolkit;

namespace {

constexpr int s_cacheLimit = 64 * 1024 * 1024;

/// What does not fit would be made again and again.
constexpr int s_leastLimit = 1024 * 1024;

/// How many elements are remembered, for the picture that they had, and more where all are edited.
constexpr std::size_t s_mostSubjects = 4096;

/// How many pictures are known by what was asked; what is forgotten is looked at again.
constexpr int s_mostKnown = 100000;

void addText(const QString& text, QCryptographicHash& hash)
{
    hash.addData(text.toUtf8().append('\0'));
}

void addAttributes(const QDomElement& element, QCryptographicHash& hash)
{
    // In the order of names: Qt gives them in none.
    const QDomNamedNodeMap map = element.attributes();
    std::map<QString, QString> attributes;
    for (int i = 0; i < map.count(); ++i) {
        const QDomAttr attribute = map.item(i).toAttr();
        attributes.emplace(attribute.name(), attribute.value());
    }
    for (const auto& [name, value] : attributes) {
        addText(name, hash);
        addText(value, hash);
    }
}

void addChildren(const QDomElement& element, QCryptographicHash& hash)
{
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        addText(QLatin1Char('<') + child.tagName(), hash);
        addAttributes(child, hash);
        addChildren(child, hash);
    }
    addText(QStringLiteral(">"), hash);
}

/// Another one where what is in the element is another.
QByteArray valuesOf(const QDomElement& element)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    addChildren(element, hash);
    return hash.result();
}

/// Another one where a picture of the element may be another.
QByteArray contentOf(const QDomElement& element, const QByteArray& values, const QString& file)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(values);
    addText(element.tagName(), hash);
    addAttributes(element, hash);
    // The unit of lengths; and by the type of an archive pictures are in other folders.
    addAttributes(element.ownerDocument().documentElement(), hash);
    // Names of snapshots' pictures begin with the collection.
    addAttributes(element.parentNode().toElement(), hash);
    addText(file, hash);
    return hash.result();
}

QImage fitted(const QImage& image, int size)
{
    return std::max(image.width(), image.height()) <= size
               ? image
               : image.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

/// What is known of pictures. Threads make them, and all else is done in that of the object.
class RVOPEN_WIDGETS_NO_EXPORT Thumbnails::Store : private RVOpenObserver {
public:
    explicit Store(Thumbnails& thumbnails)
        : m_thumbnails(thumbnails)
    {
        m_pictures.setMaxCost(s_cacheLimit);
    }

    void setLimit(int bytes)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_pictures.setMaxCost(std::max(bytes, s_leastLimit));
    }

    void setFolders(const Folders& folders)
    {
        m_folders = folders;
        refresh();
    }

    void setCatalogue(std::shared_ptr<const Catalogue> catalogue)
    {
        m_catalogue = std::move(catalogue);
        refresh();
    }

    void refresh()
    {
        ++m_state;
    }

    int waiting() const
    {
        return int(m_asked.size());
    }

    QImage picture(const QDomElement& element, const QString& file, int size, Source source);
    QImage picture(const ListedPreset& preset, int size);

private:
    /// What was made for somebody who asked.
    struct Known {
        QByteArray picture; ///< Its key.
        int state = 0;
    };

    /// An element whose picture somebody has.
    struct Subject {
        QDomElement element;
        QDomDocument document; ///< The element alone does not keep it alive.
        int size = 0;
        Source source = Shown;
        QByteArray firstValues;
        bool isEdited = false; ///< As far as is known; not forgotten then.
        QByteArray asked;      ///< The last key.
        QByteArray known;      ///< That of a picture that is there.
    };

    /// A picture to be made, and what makes it another one besides its files.
    struct Plan {
        PicturePlan picture;
        QByteArray content;
    };

    using Tell = std::function<void()>;
    /// Called by the thread that makes the picture; none where there is nothing to show.
    using MakePlan = std::function<std::optional<Plan>()>;

    void Changed(const RVOpenChange& change) override;

    void tellEdited();
    void tellSubjects(const QByteArray& key);
    QImage find(const QByteArray& key, bool& isCurrent);
    Subject& subject(const QDomElement& element, int size, Source source);
    void leave(const QByteArray& key);
    bool isAsked(const QByteArray& key);
    void ask(const QByteArray& key, const MakePlan& makePlan, int size, const Tell& tell);
    bool isKept(const QByteArray& key, QImage& picture);
    void made(const QByteArray& key, const Known& known, const QImage& picture, const Tell& tell);

    Thumbnails& m_thumbnails;
    Folders m_folders;
    std::shared_ptr<const Catalogue> m_catalogue;
    int m_state = 0; ///< Of files, as far as anybody knows.
    QHash<QByteArray, Known> m_known;
    QHash<QByteArray, int> m_asked; ///< With the state for which.
    std::deque<Subject> m_subjects; ///< The last one first.
    LoneElements m_elements;
    std::vector<QDomNode> m_edited;
    bool m_isQueued = false; ///< To tell of these.
    std::mutex m_mutex;      ///< Of the pictures, which threads look for as well.
    QCache<QByteArray, QImage> m_pictures;
    PictureWorkers m_workers; ///< Ends first.
};

QImage Thumbnails::Store::picture(const QDomElement& element, const QString& file, int size,
                                  Source source)
{
    if (element.isNull())
        return QImage();
    Subject& of = subject(element, size, source);
    const QByteArray values = valuesOf(element);
    if (of.firstValues.isEmpty())
        of.firstValues = values;
    of.isEdited = values != of.firstValues;
    const bool isDrawn = source == Drawn || of.isEdited;
    const QByteArray key =
        contentOf(element, values, file) + QByteArray::number(size) + (isDrawn ? "drawn" : "shown");
    bool isCurrent = false;
    QImage picture = find(key, isCurrent);
    const QByteArray before = std::exchange(of.asked, key);
    if (isCurrent) {
        of.known = key;
        return picture;
    }
    if (before != key)
        leave(before);
    bool isLastCurrent = false;
    if (picture.isNull())
        picture = find(of.known, isLastCurrent);
    if (isAsked(key))
        return picture;
    PictureWish wish;
    wish.size = size;
    // The copy is made now, in the thread of the document.
    QDomDocument document;
    const QDomElement alone = m_elements.copyOf(element, document);
    const Plan plan{isDrawn ? PicturePlan::Drawn(alone, file, m_folders, wish)
                            : PicturePlan::Shown(alone, file, m_folders, wish),
                    key};
    ask(
        key, [plan] { return plan; }, size, [this, key] { tellSubjects(key); });
    return picture;
}

QImage Thumbnails::Store::picture(const ListedPreset& preset, int size)
{
    if (!m_catalogue || preset.file.isEmpty())
        return QImage();
    const QByteArray key =
        preset.file.toUtf8() + '\0' + preset.path.toUtf8() + '\0' + QByteArray::number(size);
    bool isCurrent = false;
    QImage picture = find(key, isCurrent);
    if (isCurrent || isAsked(key))
        return picture;
    ask(
        key,
        [catalogue = m_catalogue, preset, folders = m_folders, size]() -> std::optional<Plan> {
            const OpenPreset opened = catalogue->Open(preset);
            if (!opened)
                return std::nullopt;
            PictureWish wish;
            wish.size = size;
            return Plan{PicturePlan::Shown(opened.element, preset.file, folders, wish),
                        contentOf(opened.element, valuesOf(opened.element), preset.file) +
                            QByteArray::number(size) + "shown"};
        },
        size, [this, preset] { Q_EMIT m_thumbnails.PresetChanged(preset); });
    return picture;
}

/// Who is told may ask for a picture, which reads the element: not in the middle of its change.
void Thumbnails::Store::Changed(const RVOpenChange& change)
{
    if (change.kind == RVOpenChange::DocumentAboutToBeReset) {
        m_edited.clear();
        m_elements.forget(change.document);
        m_subjects.erase(std::remove_if(m_subjects.begin(), m_subjects.end(),
                                        [&change](const Subject& each) {
                                            return each.document == change.document;
                                        }),
                         m_subjects.end());
        return;
    }
    const bool isOfChild =
        change.kind == RVOpenChange::ChildInserted || change.kind == RVOpenChange::ChildRemoved;
    if (!isOfChild && change.kind != RVOpenChange::AttributeSet)
        return;
    const QDomNode& node = isOfChild ? change.parent : change.node;
    if (m_edited.empty() || m_edited.back() != node)
        m_edited.push_back(node);
    if (std::exchange(m_isQueued, true))
        return;
    QMetaObject::invokeMethod(
        &m_thumbnails, [this] { tellEdited(); }, Qt::QueuedConnection);
}

void Thumbnails::Store::tellEdited()
{
    m_isQueued = false;
    const std::vector<QDomNode> edited = std::exchange(m_edited, {});
    std::vector<QDomElement> told;
    for (Subject& each : m_subjects) {
        const bool isEdited =
            std::any_of(edited.begin(), edited.end(),
                        [&each](const QDomNode& node) { return isInside(node, each.element); });
        each.isEdited = each.isEdited || isEdited;
        if (isEdited && std::find(told.begin(), told.end(), each.element) == told.end())
            told.push_back(each.element);
    }
    for (const QDomElement& element : told)
        Q_EMIT m_thumbnails.ElementChanged(element);
}

/// Equal elements wait for one picture.
void Thumbnails::Store::tellSubjects(const QByteArray& key)
{
    std::vector<QDomElement> told;
    for (const Subject& each : m_subjects) {
        if (each.asked == key)
            told.push_back(each.element);
    }
    for (const QDomElement& element : told)
        Q_EMIT m_thumbnails.ElementChanged(element);
}

QImage Thumbnails::Store::find(const QByteArray& key, bool& isCurrent)
{
    const auto known = m_known.constFind(key);
    if (known == m_known.cend())
        return QImage();
    QImage picture;
    isCurrent = isKept(known->picture, picture) && known->state == m_state;
    return picture;
}

Thumbnails::Store::Subject& Thumbnails::Store::subject(const QDomElement& element, int size,
                                                       Source source)
{
    const auto known = std::find_if(m_subjects.begin(), m_subjects.end(), [&](const Subject& each) {
        return each.element == element && each.size == size && each.source == source;
    });
    if (known != m_subjects.end())
        return *known;
    if (m_subjects.size() >= s_mostSubjects) {
        // An edited one would have the picture again that it had before.
        const auto oldest = std::find_if(m_subjects.rbegin(), m_subjects.rend(),
                                         [](const Subject& each) { return !each.isEdited; });
        if (oldest != m_subjects.rend())
            m_subjects.erase(std::next(oldest).base());
    }
    Subject subject;
    subject.element = element;
    subject.document = element.ownerDocument();
    subject.size = size;
    subject.source = source;
    m_subjects.push_front(subject);
    return m_subjects.front();
}

/// A picture that nobody waits for any more is not made.
void Thumbnails::Store::leave(const QByteArray& key)
{
    const bool isAsked = std::any_of(m_subjects.begin(), m_subjects.end(),
                                     [&key](const Subject& each) { return each.asked == key; });
    if (!isAsked && m_asked.remove(key) > 0)
        m_workers.stop(key);
}

/// What is asked for again comes first.
bool Thumbnails::Store::isAsked(const QByteArray& key)
{
    const auto asked = m_asked.constFind(key);
    if (asked == m_asked.cend() || *asked != m_state)
        return false;
    m_workers.hurry(key);
    return true;
}

void Thumbnails::Store::ask(const QByteArray& key, const MakePlan& makePlan, int size,
                            const Tell& tell)
{
    if (m_asked.contains(key))
        m_workers.stop(key);
    m_asked.insert(key, m_state);
    const auto work = [this, key, makePlan, size, tell,
                       state = m_state](const std::atomic<bool>& stop) {
        QByteArray pictureKey;
        QImage picture;
        if (const std::optional<Plan> plan = makePlan()) {
            pictureKey = plan->content + plan->picture.ImageState();
            if (!isKept(pictureKey, picture))
                picture = fitted(plan->picture.Draw(&stop), size);
        }
        if (stop)
            return;
        QMetaObject::invokeMethod(
            &m_thumbnails,
            [this, key, known = Known{pictureKey, state}, picture, tell] {
                made(key, known, picture, tell);
            },
            Qt::QueuedConnection);
    };
    for (const QByteArray& dropped : m_workers.add(key, work))
        m_asked.remove(dropped);
}

bool Thumbnails::Store::isKept(const QByteArray& key, QImage& picture)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const QImage* const kept = m_pictures.object(key);
    if (kept)
        picture = *kept;
    return kept != nullptr;
}

void Thumbnails::Store::made(const QByteArray& key, const Known& known, const QImage& picture,
                             const Tell& tell)
{
    const auto asked = m_asked.constFind(key);
    if (asked != m_asked.cend() && *asked == known.state)
        m_asked.remove(key);
    if (m_known.size() >= s_mostKnown)
        m_known.clear();
    m_known.insert(key, known);
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        // One that is more than all that is kept is there alone.
        const auto bytes = int(std::min<qint64>(picture.sizeInBytes() + 1, m_pictures.maxCost()));
        m_pictures.insert(known.picture, new QImage(picture), bytes);
    }
    tell();
}

Thumbnails::Thumbnails(QObject* parent)
    : QObject(parent)
    , m_store(std::make_unique<Store>(*this))
{
}

Thumbnails::~Thumbnails() = default;

void Thumbnails::SetFolders(const Folders& folders)
{
    m_store->setFolders(folders);
}

void Thumbnails::SetCatalogue(std::shared_ptr<const Catalogue> catalogue)
{
    m_store->setCatalogue(std::move(catalogue));
}

void Thumbnails::Refresh()
{
    m_store->refresh();
}

void Thumbnails::SetCacheLimit(int bytes)
{
    m_store->setLimit(bytes);
}

QImage Thumbnails::Picture(const QDomElement& element, const QString& file, int size, Source source)
{
    return m_store->picture(element, file, size, source);
}

QImage Thumbnails::Picture(const ListedPreset& preset, int size)
{
    return m_store->picture(preset, size);
}

QImage Thumbnails::Placeholder(int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(128, 128, 128, 40));
    const double margin = size / 8.0;
    painter.drawRoundedRect(QRectF(image.rect()).adjusted(margin, margin, -margin, -margin), margin,
                            margin);
    return image;
}

int Thumbnails::Waiting() const
{
    return m_store->waiting();
}

} // namespace rvopen::widgets
