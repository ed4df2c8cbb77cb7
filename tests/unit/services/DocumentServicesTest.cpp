#include "FakeContent.h"
#include "FakeRenderer.h"
#include "FakeSession.h"

#include "OrvikCore/AContentFactory.h"
#include "OrvikCore/Document.h"
#include "OrvikCore/TambDocumentServicesPellux.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

using OrvikCore::AContent;
using OrvikCore::Document;
using TambVizCore::VizBox;
using testing::ElementsAre;
using testing::Optional;

namespace {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class NullFactory final : public OrvikCore::AContentFactory
{
public:
    AContent* CreateContent(Document&) override { return nullptr; }
};

#pragma GCC diagnostic pop

// The log outlives the contents, which the session manager deletes at the end of the process.
CallLog& contentLog()
{
    static auto* const log = new CallLog;
    return *log;
}

std::optional<std::vector<double>> readBox(TambDocumentServicesPellux& services)
{
    std::vector<double> box = {-1.0, -1.0, -1.0, -1.0, -1.0, -1.0};
    if (!services.GetBoundingBox(box[0], box[1], box[2], box[3], box[4], box[5])) {
        EXPECT_THAT(box, testing::Each(-1.0));
        return std::nullopt;
    }
    return box;
}

struct DocumentServices : testing::Test
{
    FakeContent& add(const VizBox& box)
    {
        Document& document = m_session.Document();
        auto* const content = new FakeContent(document, "content", contentLog());
        content->m_box = box;
        document.AddContent(*content);
        return *content;
    }

    FakeSession& m_session = MakeCurrentFakeSession();
    TambDocumentServicesPellux m_services;
};

} // namespace

TEST_F(DocumentServices, BoxIsTheContentsOwn)
{
    add(VizBox(1, 2, 3, 4, 5, 6));

    EXPECT_THAT(readBox(m_services), Optional(ElementsAre(1, 2, 3, 4, 5, 6)));
}

TEST_F(DocumentServices, BoxHoldsEveryContent)
{
    NullFactory factory;
    add(VizBox(0, 0, 0, 1, 1, 1));
    m_session.Document().CreateContent(&factory);
    add(VizBox());
    add(VizBox(-2, 0, 5, 0.5, 3, 6));

    EXPECT_THAT(readBox(m_services), Optional(ElementsAre(-2, 0, 0, 1, 3, 6)));
}

TEST_F(DocumentServices, AContentWithoutBoxGivesThatOfItsRenderer)
{
    FakeContent& content = add(VizBox());
    Fake3DRenderer renderer(&content);
    renderer.SetBoxLo(1, 2, 3);
    renderer.SetBoxHi(4, 5, 6);
    m_session.AddRenderer(&renderer, /*keep=*/true);

    EXPECT_THAT(readBox(m_services), Optional(ElementsAre(1, 2, 3, 4, 5, 6)));
}

TEST_F(DocumentServices, ARendererWithHalfABoxGivesNone)
{
    FakeContent& content = add(VizBox());
    Fake3DRenderer renderer(&content);
    m_session.AddRenderer(&renderer, /*keep=*/true);

    renderer.SetBoxLo(1, 2, 3);
    EXPECT_EQ(readBox(m_services), std::nullopt);
    renderer.SetBoxEmpty();
    renderer.SetBoxHi(1, 2, 3);
    EXPECT_EQ(readBox(m_services), std::nullopt);
}

TEST_F(DocumentServices, ThereIsNoBoxWithoutContent)
{
    EXPECT_EQ(readBox(m_services), std::nullopt);
    add(VizBox());
    EXPECT_EQ(readBox(m_services), std::nullopt);
}

TEST(DocumentServicesWithoutSession, ThereIsNoBox)
{
    TambDocumentServicesPellux services;

    EXPECT_EQ(readBox(services), std::nullopt);
}
