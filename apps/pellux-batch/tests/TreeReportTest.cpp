#include "../TreeReport.h"

#include "../JsonText.h"

#include <OrvikCore/TreeBuilder.h>

#include <HostTree.h>
#include <gtest/gtest.h>

namespace {

using Pellux::HostTree;

/// A file with a body whose name has a line end and quotation marks.
void build(HostTree& tree)
{
    OrvikCore::TreeBuilder& builder = *tree.GetTreeBuilder();
    builder.ConstructionBegin();
    builder.ContainerBegin(1, L"part.step");
    builder.BodyBegin(12, L"a\n\"b\" \u00e4");
    builder.BodyEnd();
    builder.ContainerEnd();
    builder.ConstructionEnd();
}

TEST(TreeReport, IndentsKindAndName)
{
    HostTree tree(nullptr);
    build(tree);

    EXPECT_EQ(PelluxBatch::DescribeTreeText(tree), "container part.step\n"
                                                   "  body a \"b\" \u00e4\n");
}

TEST(TreeReport, IsJsonForPrograms)
{
    HostTree tree(nullptr);
    build(tree);
    TambVizCore::RenderId body(TambVizCore::RenderId::kOriginTree);
    body.AddValue(1);
    body.AddValue(12);
    tree.HighlightNode(body);

    EXPECT_EQ(PelluxBatch::DescribeTreeJson(tree),
              "{\"tree\": [{\"path\": [1], \"kind\": \"container\", \"name\": \"part.step\", "
              "\"children\": [{\"path\": [1, 12], \"kind\": \"body\", \"name\": "
              "\"a\\u000a\\\"b\\\" \u00e4\", \"highlighted\": true, \"children\": []}]}]}\n");
}

TEST(TreeReport, OfAnEmptyTreeIsEmpty)
{
    HostTree tree(nullptr);

    EXPECT_EQ(PelluxBatch::DescribeTreeText(tree), "");
    EXPECT_EQ(PelluxBatch::DescribeTreeJson(tree), "{\"tree\": []}\n");
}

TEST(JsonText, HoldsOnlyCharacters)
{
    EXPECT_EQ(PelluxBatch::JsonQuoted(L"a\\b\t"), "\"a\\\\b\\u0009\"");
    EXPECT_EQ(PelluxBatch::JsonQuoted(std::wstring(1, wchar_t(0xDCFF))), "\"\xEF\xBF\xBD\"");
    EXPECT_EQ(PelluxBatch::JsonQuoted(L"\U0001F600"), "\"\xF0\x9F\x98\x80\"");
}

} // namespace
