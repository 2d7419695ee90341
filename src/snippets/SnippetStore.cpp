#include "snippets/SnippetStore.h"

#include "snippets/SnippetTitle.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

namespace quorvel {

namespace {

constexpr qsizetype rootList = -1;

template <typename Item>
qsizetype indexOf(const QList<Item>& items, const QUuid& id) {
    const auto found =
        std::find_if(items.cbegin(), items.cend(), [&](const Item& item) { return item.id == id; });
    return found == items.cend() ? -1 : found - items.cbegin();
}

SnippetResult refused(SnippetProblem problem) {
    return {{}, problem};
}

SnippetResult done(const QUuid& id) {
    return {id, std::nullopt};
}

/// The title that the content asks for, or one made from its text; empty when neither shows.
QString titleOf(const SnippetContent& content) {
    return titleOfText(content.title).isEmpty() ? titleOfText(content.text) : content.title;
}

} // namespace

SnippetStore::SnippetStore(QString fileURL, const Clock& clock, MainQueue& mainQueue,
                           BackgroundQueue& disk)
    : m_mainQueue(mainQueue)
    , m_file(std::move(fileURL), clock, mainQueue, disk) {
    connect(&m_file, &SnippetFile::tried, this, &SnippetStore::saveTried);
    connect(&m_file, &SnippetFile::problemChanged, this, &SnippetStore::saveProblemChanged);
}

void SnippetStore::load() {
    m_data = m_file.load();
}

void SnippetStore::saveNow() {
    if (m_usageSave.isPending())
        save();
    m_file.finish();
}

const Snippet* SnippetStore::snippet(const QUuid& id) const {
    const auto position = positionOf(id);
    return position ? &snippets(position->list).at(position->index) : nullptr;
}

const SnippetGroup* SnippetStore::group(const QUuid& id) const {
    const qsizetype index = groupIndex(id);
    return index < 0 ? nullptr : &m_data.groups.at(index);
}

SnippetResult SnippetStore::addGroup(const QString& name) {
    if (titleOfText(name).isEmpty())
        return refused(SnippetProblem::blank);
    const QUuid id = QUuid::createUuid();
    m_data.groups.append({.id = id, .name = name});
    return createdAndSaved(SnippetCreation::group, id);
}

SnippetResult SnippetStore::renameGroup(const QUuid& id, const QString& name) {
    const qsizetype index = groupIndex(id);
    if (index < 0)
        return refused(SnippetProblem::noSuchGroup);
    if (titleOfText(name).isEmpty())
        return refused(SnippetProblem::blank);
    if (m_data.groups.at(index).name == name)
        return done(id);
    m_data.groups[index].name = name;
    return changedAndSaved(id);
}

SnippetResult SnippetStore::deleteGroup(const QUuid& id) {
    const qsizetype index = groupIndex(id);
    if (index < 0)
        return refused(SnippetProblem::noSuchGroup);
    m_data.groups.removeAt(index);
    return changedAndSaved(id);
}

SnippetResult SnippetStore::moveGroup(const QUuid& id, qsizetype position) {
    const qsizetype index = groupIndex(id);
    if (index < 0)
        return refused(SnippetProblem::noSuchGroup);
    const qsizetype target = std::clamp<qsizetype>(position, 0, m_data.groups.size() - 1);
    if (target == index)
        return done(id);
    m_data.groups.move(index, target);
    return changedAndSaved(id);
}

SnippetResult SnippetStore::addSnippet(const SnippetContent& content, const SnippetPlace& place) {
    const auto list = listOf(place.group);
    if (!list)
        return refused(SnippetProblem::noSuchGroup);
    const QString title = titleOf(content);
    if (title.isEmpty())
        return refused(SnippetProblem::blank);
    const QUuid id = QUuid::createUuid();
    QList<Snippet>& target = snippets(*list);
    target.insert(std::clamp<qsizetype>(place.position, 0, target.size()),
                  {.id = id,
                   .title = title,
                   .text = content.text,
                   .shortcut = content.shortcut,
                   .customShortcut = content.customShortcut});
    return createdAndSaved(SnippetCreation::snippet, id);
}

SnippetResult SnippetStore::addFromClipboard(const QString& text,
                                             const std::optional<QUuid>& group) {
    return addSnippet({.text = text}, {.group = group});
}

SnippetResult SnippetStore::editSnippet(const QUuid& id, const SnippetContent& content) {
    const auto position = positionOf(id);
    if (!position)
        return refused(SnippetProblem::noSuchSnippet);
    const QString title = titleOf(content);
    if (title.isEmpty())
        return refused(SnippetProblem::blank);
    const Snippet& former = std::as_const(*this).snippets(position->list).at(position->index);
    Snippet edited = former;
    edited.title = title;
    edited.text = content.text;
    edited.shortcut = content.shortcut;
    edited.customShortcut = content.customShortcut;
    if (edited == former)
        return done(id);
    snippets(position->list)[position->index] = std::move(edited);
    return changedAndSaved(id);
}

SnippetResult SnippetStore::deleteSnippet(const QUuid& id) {
    const auto position = positionOf(id);
    if (!position)
        return refused(SnippetProblem::noSuchSnippet);
    snippets(position->list).removeAt(position->index);
    return changedAndSaved(id);
}

SnippetResult SnippetStore::moveSnippet(const QUuid& id, const SnippetPlace& place) {
    const auto from = positionOf(id);
    if (!from)
        return refused(SnippetProblem::noSuchSnippet);
    const auto list = listOf(place.group);
    if (!list)
        return refused(SnippetProblem::noSuchGroup);
    const bool staysInList = *list == from->list;
    const qsizetype last = std::as_const(*this).snippets(*list).size() - (staysInList ? 1 : 0);
    const qsizetype target = std::clamp<qsizetype>(place.position, 0, last);
    if (staysInList && target == from->index)
        return done(id);
    Snippet moved = snippets(from->list).takeAt(from->index);
    snippets(*list).insert(target, std::move(moved));
    return changedAndSaved(id);
}

SnippetResult SnippetStore::incrementUsageCount(const QUuid& id) {
    const auto position = positionOf(id);
    if (!position)
        return refused(SnippetProblem::noSuchSnippet);
    qint64& count = snippets(position->list)[position->index].usageCount;
    count = std::min(count, std::numeric_limits<qint64>::max() - 1) + 1;
    if (!m_usageSave.isPending())
        m_usageSave = m_mainQueue.after(usageSaveDelay, this, [this] { save(); });
    emit changed();
    return done(id);
}

qsizetype SnippetStore::groupIndex(const QUuid& id) const {
    return indexOf(m_data.groups, id);
}

std::optional<qsizetype> SnippetStore::listOf(const std::optional<QUuid>& group) const {
    if (!group)
        return rootList;
    const qsizetype index = groupIndex(*group);
    return index < 0 ? std::nullopt : std::optional(index);
}

std::optional<SnippetStore::Position> SnippetStore::positionOf(const QUuid& id) const {
    for (qsizetype list = rootList; list < m_data.groups.size(); ++list)
        if (const qsizetype index = indexOf(snippets(list), id); index >= 0)
            return Position{list, index};
    return std::nullopt;
}

const QList<Snippet>& SnippetStore::snippets(qsizetype list) const {
    return list == rootList ? m_data.rootSnippets : m_data.groups.at(list).snippets;
}

QList<Snippet>& SnippetStore::snippets(qsizetype list) {
    return list == rootList ? m_data.rootSnippets : m_data.groups[list].snippets;
}

SnippetResult SnippetStore::changedAndSaved(const QUuid& id) {
    save();
    emit changed();
    return done(id);
}

SnippetResult SnippetStore::createdAndSaved(SnippetCreation creation, const QUuid& id) {
    m_unsavedCreations.append({creation, save()});
    emit changed();
    return done(id);
}

qint64 SnippetStore::save() {
    m_usageSave.cancel();
    return m_file.save(m_data);
}

void SnippetStore::saveTried(qint64 number, const QString& problem) {
    const auto isCovered = [number](const UnsavedCreation& made) { return made.save <= number; };
    const auto covered = std::stable_partition(m_unsavedCreations.begin(), m_unsavedCreations.end(),
                                               std::not_fn(isCovered));
    const QList<UnsavedCreation> ready(covered, m_unsavedCreations.end());
    m_unsavedCreations.erase(covered, m_unsavedCreations.end());
    if (problem.isEmpty())
        return;
    for (const UnsavedCreation& made : ready)
        emit creationNotSaved(made.creation, problem);
}

} // namespace quorvel
