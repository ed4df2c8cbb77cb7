#include "OrvikCore/ViewObjectManager.h"

#include "OrvikCore/AViewObject.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Node.h>

#include <algorithm>
#include <iterator>

namespace OrvikCore {

namespace {

/// Deliberate: the id of every manager's own node, and the number before the first view object's.
/// Held by ViewObjectManagerTest.ObjectIdsAreUniqueAcrossManagers.
constexpr std::uint64_t kFirstId = 60000;

/// @return the first object in name order; null when every entry holds null.
AViewObject* firstObject(const ViewObjectManager::Objects& objects)
{
    const auto entry = std::find_if(objects.begin(), objects.end(),
                                    [](const auto& each) { return each.second != nullptr; });
    return entry != objects.end() ? entry->second : nullptr;
}

/// Clears an object and destroys it, once, under whatever names it is entered.
///
/// Both steps are the object's own code, which may come back to the manager: the object is deleted
/// only while the manager owns it, and its entries hold null before its destructor begins.
void clearAndDestroy(ViewObjectManager::Objects& objects, AViewObject* object)
{
    object->Clear();
    bool isOwned = false;
    for (auto& [name, entered] : objects) {
        if (entered == object) {
            entered = nullptr;
            isOwned = true;
        }
    }
    if (isOwned) {
        delete object;
    }
}

} // namespace

using Guard = OrvikOs::CriticalSection::Guard;

std::atomic<std::uint64_t> ViewObjectManager::s_lastId{kFirstId};

ViewObjectManager::ViewObjectManager(TambVizCore::Node& parent)
    : node(parent.CreateChildGeoNode(kFirstId)),
      m_lock(std::make_unique<OrvikOs::CriticalSection>())
{
    node->SetName("VIEW_OBJECTS");
}

ViewObjectManager::~ViewObjectManager()
{
    // The lock is released before it is deleted with the fields.
    const Guard guard(*m_lock);
    while (AViewObject* const first = firstObject(objects)) {
        clearAndDestroy(objects, first);
    }
    objects.clear();
}

TambVizCore::Node* ViewObjectManager::GetNode() const
{
    return node;
}

void ViewObjectManager::Add(std::string const& name, AViewObject* object)
{
    const Guard guard(*m_lock);
    if (object == nullptr) {
        return;
    }
    AViewObject*& present = objects.emplace(name, object).first->second;
    if (present == nullptr) {
        present = object; // The name's object is being destroyed right now.
    }
    if (present == object) {
        return;
    }
    // Deliberate: a taken name only loses its object; the new one is not entered by this call.
    // Held by ViewObjectManager.AddWithTakenNameDestroysThePresentObjectAndEntersNothing.
    clearAndDestroy(objects, present);
    std::erase_if(objects, [](const auto& entry) { return entry.second == nullptr; });
}

void ViewObjectManager::Remove(AViewObject* object)
{
    const Guard guard(*m_lock);
    std::erase_if(objects, [object](const auto& entry) { return entry.second == object; });
}

void ViewObjectManager::Remove(std::string const& name)
{
    const Guard guard(*m_lock);
    objects.erase(name);
}

int ViewObjectManager::Count() const
{
    return static_cast<int>(objects.size());
}

AViewObject* ViewObjectManager::Get(std::string const& name) const
{
    const auto entry = objects.find(name);
    return entry != objects.end() ? entry->second : nullptr;
}

bool ViewObjectManager::Contains(std::string const& name) const
{
    return objects.contains(name);
}

void ViewObjectManager::Render()
{
    const Guard guard(*m_lock);
    for (const auto& [name, object] : objects) {
        if (object != nullptr && object->IsVisible()) {
            object->Render();
        }
    }
}

void ViewObjectManager::Clear()
{
    const Guard guard(*m_lock);
    for (const auto& [name, object] : objects) {
        if (object != nullptr) {
            object->Clear();
        }
    }
}

void ViewObjectManager::Display()
{
    if (!IsEnabled()) {
        return;
    }
    const Guard guard(*m_lock);
    for (const auto& [name, object] : objects) {
        if (object != nullptr) {
            object->Display();
        }
    }
}

void ViewObjectManager::SetIsEnabled(bool const& isEnabled)
{
    enabled.store(isEnabled, std::memory_order_release);
}

bool ViewObjectManager::IsEnabled() const
{
    return enabled.load(std::memory_order_acquire);
}

std::string ViewObjectManager::ToString()
{
    std::string names;
    for (const auto& [name, object] : objects) {
        if (!names.empty()) {
            names += ", ";
        }
        names += name;
    }
    return names;
}

AViewObject* ViewObjectManager::operator[](int index) const
{
    if (index < 0 || index >= Count()) {
        return nullptr;
    }
    return std::next(objects.begin(), index)->second;
}

ViewObjectManager::Objects::const_iterator ViewObjectManager::Begin() const
{
    return objects.begin();
}

ViewObjectManager::Objects::const_iterator ViewObjectManager::End() const
{
    return objects.end();
}

std::uint64_t ViewObjectManager::GetNextId()
{
    return s_lastId.fetch_add(1, std::memory_order_relaxed) + 1;
}

} // namespace OrvikCore
