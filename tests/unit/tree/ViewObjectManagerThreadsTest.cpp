#include "OrvikCore/AViewObject.h"
#include "OrvikCore/ViewObjectManager.h"

#include <TambVizCore/Node.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

using OrvikCore::AViewObject;
using OrvikCore::ViewObjectManager;

namespace {

constexpr int kRounds = 2000;

// A view object with geometry of its own, which every step touches without a lock.
class SteppingObject : public AViewObject
{
public:
    explicit SteppingObject(std::atomic<int>& alive) : m_alive(&alive) { ++alive; }
    ~SteppingObject() override { --*m_alive; }
    SteppingObject(const SteppingObject&) = delete;
    SteppingObject& operator=(const SteppingObject&) = delete;

    int m_displayed = 0;

protected:
    void doRender() override
    {
        m_geometry.assign(16, 1);
        rendered = true;
    }
    void doClear() override { m_geometry.clear(); }
    void doDisplay() override { m_displayed += static_cast<int>(m_geometry.size()); }

private:
    std::atomic<int>* m_alive; ///< Not owned.
    std::vector<int> m_geometry;
};

// Draws on the calling thread until the other thread has finished.
void drawUntil(ViewObjectManager& manager, const std::atomic<bool>& finished)
{
    do {
        manager.Render();
        manager.Display();
        manager.Clear();
    } while (!finished.load());
    manager.Render();
    manager.Display();
}

} // namespace

TEST(ViewObjectManagerThreads, ObjectsComeAndGoWhileTheWindowDraws)
{
    std::atomic<int> alive{0};
    std::atomic<bool> finished{false};
    TambVizCore::Node root(1);
    {
        ViewObjectManager manager(root);
        std::thread scripts([&] {
            for (int i = 0; i < kRounds; ++i) {
                auto* const object = new SteppingObject(alive);
                const std::string name = "object" + std::to_string(i % 5);
                manager.Add(name, object);
                manager.SetIsEnabled(i % 2 == 0);
                manager.Remove(object);
                delete object;
            }
            manager.SetIsEnabled(true);
            finished = true;
        });
        drawUntil(manager, finished);
        scripts.join();
        EXPECT_EQ(manager.Count(), 0);
    }

    EXPECT_EQ(alive.load(), 0);
}

TEST(ViewObjectManagerThreads, ATakenNameDestroysItsObjectWhileTheWindowDraws)
{
    std::atomic<int> alive{0};
    std::atomic<bool> finished{false};
    TambVizCore::Node root(1);
    {
        ViewObjectManager manager(root);
        std::thread scripts([&] {
            for (int i = 0; i < kRounds; ++i) {
                manager.Add("label", new SteppingObject(alive));
                auto* const next = new SteppingObject(alive);
                manager.Add("label", next);
                delete next;
            }
            finished = true;
        });
        drawUntil(manager, finished);
        scripts.join();
    }

    EXPECT_EQ(alive.load(), 0);
}

TEST(ViewObjectManagerThreads, ObjectsThatStayAreDrawnAfterAll)
{
    std::atomic<int> alive{0};
    std::atomic<bool> finished{false};
    TambVizCore::Node root(1);
    ViewObjectManager manager(root);
    SteppingObject* last = nullptr;

    std::thread scripts([&] {
        for (int i = 0; i < kRounds / 10; ++i) {
            last = new SteppingObject(alive);
            manager.Add("object" + std::to_string(i), last);
        }
        finished = true;
    });
    drawUntil(manager, finished);
    scripts.join();

    EXPECT_EQ(manager.Count(), kRounds / 10);
    EXPECT_GE(last->m_displayed, 16);
}

TEST(ViewObjectManagerThreads, IdsAreUniqueAcrossThreads)
{
    std::atomic<int> alive{0};
    std::vector<std::unique_ptr<SteppingObject>> ofScripts;
    std::vector<std::unique_ptr<SteppingObject>> ofWindow;

    std::thread scripts([&] {
        for (int i = 0; i < kRounds; ++i) {
            ofScripts.push_back(std::make_unique<SteppingObject>(alive));
        }
    });
    for (int i = 0; i < kRounds; ++i) {
        ofWindow.push_back(std::make_unique<SteppingObject>(alive));
    }
    scripts.join();

    std::set<std::uint64_t> ids;
    for (const auto* objects : {&ofScripts, &ofWindow}) {
        for (const auto& object : *objects) {
            ids.insert(object->Id());
        }
    }
    EXPECT_EQ(ids.size(), 2u * kRounds);
}
