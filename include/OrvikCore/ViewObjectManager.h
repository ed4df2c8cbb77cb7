#ifndef ORVIKCORE_VIEWOBJECTMANAGER_H
#define ORVIKCORE_VIEWOBJECTMANAGER_H

#include "OrvikCore/Export.h"

#include <OrvikOs/CriticalSection.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace TambVizCore {
class GeoNode;
class Node;
} // namespace TambVizCore

namespace OrvikCore {

class AViewObject;

/// The view objects of one view, by name, under one scene node of their own.
///
/// The manager owns the objects that are in it: it deletes them in its destructor, and the one
/// present when Add() meets a taken name. Remove() hands an object back to its caller.
///
/// @thread Add(), both Remove(), Render(), Clear(), Display() and the destructor hold the manager's
///         lock for their whole run: scripts add and remove while the window draws. Get(),
///         Contains(), Count(), operator[], Begin(), End() and ToString() take no lock: for the
///         thread that adds and removes, or while nobody does.
class ORVIKCORE_API ViewObjectManager
{
public:
    using Objects = std::map<std::string, AViewObject*>;

    /// Makes a child node with id 60000 and name "VIEW_OBJECTS" below @p parent, which owns it.
    explicit ViewObjectManager(TambVizCore::Node& parent);

    ViewObjectManager(const ViewObjectManager&) = delete;
    ViewObjectManager& operator=(const ViewObjectManager&) = delete;

    // Virtual operations in slot order; append only.

    /// Clears and deletes every object in name order, one with several names once.
    virtual ~ViewObjectManager();

    /// Returns the manager's own node; not owned, valid as long as its parent.
    virtual TambVizCore::Node* GetNode() const;

    /// Enters an object (transferred in) under a new name; null does nothing.
    ///
    /// A taken name with the same object changes nothing. A taken name with another object clears
    /// and deletes the object present and then removes its entries; @p object is not entered by
    /// this call and stays the caller's. An object may come back to the manager from its clear step
    /// and its destructor: Remove() in the former keeps it alive for the caller, in the latter it
    /// does nothing, because the entries hold null by then.
    virtual void Add(std::string const& name, AViewObject* object);

    /// Removes every entry of an object, which is then the caller's again.
    virtual void Remove(AViewObject* object);

    /// Removes one entry; its object is then the caller's again.
    virtual void Remove(std::string const& name);

    virtual int Count() const;

    /// Returns the object of that name or null; not owned.
    virtual AViewObject* Get(std::string const& name) const;

    virtual bool Contains(std::string const& name) const;

    /// Renders every visible object in name order, also while disabled.
    virtual void Render();

    /// Clears every object in name order; the entries stay.
    virtual void Clear();

    /// Displays every object in name order; does nothing while disabled.
    virtual void Display();

    /// Switches Display() on or off; nothing else changes.
    virtual void SetIsEnabled(bool const& isEnabled);
    virtual bool IsEnabled() const;

    /// Returns the names in order, joined by ", ".
    std::string ToString();

    /// Returns the object at a position in name order; null when out of range. Not owned.
    AViewObject* operator[](int index) const;

    Objects::const_iterator Begin() const;
    Objects::const_iterator End() const;

private:
    friend class AViewObject;

    /// Returns a number never returned before in this process: 60001, 60002, ...
    static std::uint64_t GetNextId();

    static std::atomic<std::uint64_t> s_lastId;

    Objects objects;                  ///< Owned.
    TambVizCore::GeoNode* node;       ///< Owned by its parent.
    std::atomic<bool> enabled = true; ///< Written by scripts, read while drawing.
    std::unique_ptr<OrvikOs::CriticalSection> m_lock;
};

} // namespace OrvikCore

#endif
