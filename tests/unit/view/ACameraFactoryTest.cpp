#include "OrvikCore/ACameraFactory.h"

#include "CameraFixture.h"

#include "OrvikCore/ViewOpRotate.h"

#include <memory>

using OrvikCore::ACamera;
using OrvikCore::CameraYUp;
using OrvikCore::CameraZUp;
using ::testing::ElementsAre;

namespace {

/// The cameras of the product.
class ACameraFactoryTest : public ::testing::Test
{
protected:
    ACameraFactoryTest()
    {
        m_factory.AddPrototype(new CameraYUp(nullptr));
        m_factory.AddPrototype(new CameraZUp(nullptr));
    }

    FakeView3D m_view;
    OrvikCore::ACameraFactory m_factory;
};

/// Counts how many of its kind are deleted.
class CountedCamera : public PlainCamera
{
public:
    explicit CountedCamera(int& deleted) : m_deleted(deleted) {}
    ~CountedCamera() override { ++m_deleted; }

private:
    int& m_deleted;
};

} // namespace

TEST_F(ACameraFactoryTest, MakesACameraOfTheNameForTheView)
{
    const std::unique_ptr<ACamera> camera(m_factory.MakeCamera(&m_view, "CameraZUp"));

    EXPECT_NE(dynamic_cast<CameraZUp*>(camera.get()), nullptr);
    EXPECT_EQ(camera->GetView3D(), &m_view);
}

TEST_F(ACameraFactoryTest, ComparesNamesExactly)
{
    EXPECT_EQ(m_factory.MakeCamera(&m_view, "camerazup"), nullptr);
    EXPECT_EQ(m_factory.MakeCamera(&m_view, "CameraZU"), nullptr);
    EXPECT_EQ(m_factory.MakeCamera(&m_view, ""), nullptr);
    EXPECT_EQ(m_factory.MakeCamera(&m_view, nullptr), nullptr);
}

TEST_F(ACameraFactoryTest, MadeCamerasDoNotShareStrategies)
{
    const std::unique_ptr<ACamera> first(m_factory.MakeCamera(&m_view, "CameraYUp"));
    const std::unique_ptr<ACamera> second(m_factory.MakeCamera(&m_view, "CameraYUp"));
    const Vector center{1, 2, 3};
    Vector read{};

    first->SetRotationCenter(center.data());
    second->GetRotationCenter(read.data());

    EXPECT_THAT(read, ElementsAre(0.0f, 0.0f, 0.0f));
}

TEST_F(ACameraFactoryTest, StrategiesOfAMadeCameraMoveThatCamera)
{
    const std::unique_ptr<ACamera> camera(m_factory.MakeCamera(&m_view, "CameraYUp"));
    OrvikCore::ViewOpRotate rotation(400, 0, 0, 0, OrvikCore::IViewOpState::Processing);

    camera->Rotate(&rotation);

    EXPECT_THAT(tripleOf(*camera).eye, IsNear(0.0f, -100.0f, 0.0f));
}

TEST_F(ACameraFactoryTest, MakesACameraWithTheSettingsOfAnother)
{
    CameraYUp other(&m_view);
    other.SetAnimate(false);
    other.SetFieldOfViewRadians(0.5f);
    setTriple(other, {{1, 2, 3}, {4, 5, 6}, {0, 0, 1}});
    const Vector center{7, 8, 9};
    other.SetRotationCenter(center.data());

    const std::unique_ptr<ACamera> camera(m_factory.MakeCamera(other, "CameraZUp"));

    EXPECT_NE(dynamic_cast<CameraZUp*>(camera.get()), nullptr);
    EXPECT_EQ(camera->GetView3D(), &m_view);
    EXPECT_THAT(tripleOf(*camera).eye, ElementsAre(1.0f, 2.0f, 3.0f));
    EXPECT_EQ(camera->GetFieldOfViewRadians(), 0.5f);
    EXPECT_FALSE(camera->GetAnimate());
    Vector read{};
    camera->GetRotationCenter(read.data());
    EXPECT_EQ(read, center);
}

TEST_F(ACameraFactoryTest, SettingsOfAnotherUnderAnUnknownNameGiveNull)
{
    CameraYUp other(&m_view);

    EXPECT_EQ(m_factory.MakeCamera(other, "CameraXUp"), nullptr);
}

TEST(ACameraFactory, FirstPrototypeOfANameCounts)
{
    OrvikCore::ACameraFactory factory;
    auto* first = new CameraYUp(nullptr);
    first->SetFieldOfViewRadians(0.5f);
    factory.AddPrototype(nullptr);
    factory.AddPrototype(first);
    factory.AddPrototype(new CameraYUp(nullptr));

    const std::unique_ptr<ACamera> camera(factory.MakeCamera(nullptr, "CameraYUp"));

    EXPECT_EQ(camera->GetFieldOfViewRadians(), 0.5f);
}

TEST(ACameraFactory, DeletesItsPrototypes)
{
    int deleted = 0;
    {
        OrvikCore::ACameraFactory factory;
        factory.AddPrototype(new CountedCamera(deleted));
        factory.AddPrototype(new CountedCamera(deleted));
    }

    EXPECT_EQ(deleted, 2);
}
