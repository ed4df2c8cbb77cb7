#include "OrvikCore/TambServiceSetCollectionPelluxApplication.h"

#include <TambCommandsInfra/ITambServiceSet.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <thread>

using Collection = TambServiceSetCollectionPelluxApplication;
using testing::ElementsAre;

TEST(ServiceSetCollection, RegistersApplicationCoreThenViewThenDocument)
{
    const TambServiceSetCollectionBase* const collection = Collection::GetServiceSetCollection();

    std::vector<TambServiceKind> kinds;
    for (const ITambServiceSet* set : collection->GetServiceSets()) {
        kinds.push_back(set->GetServiceKind());
    }
    EXPECT_THAT(kinds, ElementsAre(TambServiceKind::ApplicationCore, TambServiceKind::View,
                                   TambServiceKind::Document));
}

TEST(ServiceSetCollection, HoldsTheImplementationsOfThisApplication)
{
    const auto collection = Collection::GetApplicationCollection();

    EXPECT_NE(dynamic_cast<TambApplicationCoreServicesPellux*>(
                  collection->GetServiceSet(TambServiceKind::ApplicationCore)),
              nullptr);
    EXPECT_NE(
        dynamic_cast<TambViewServicesPellux*>(collection->GetServiceSet(TambServiceKind::View)),
        nullptr);
    EXPECT_NE(dynamic_cast<TambDocumentServicesPellux*>(
                  collection->GetServiceSet(TambServiceKind::Document)),
              nullptr);
}

TEST(ServiceSetCollection, IsOneForTheProcess)
{
    const std::shared_ptr<TambServiceSetCollectionBase> first =
        Collection::GetApplicationCollection();

    EXPECT_NE(first, nullptr);
    EXPECT_EQ(Collection::GetApplicationCollection(), first);
    EXPECT_EQ(Collection::GetServiceSetCollection(), first.get());
}

TEST(ServiceSetCollection, IsMadeOnceThoughTwoThreadsAskAtTheSameTime)
{
    TambServiceSetCollectionBase* other = nullptr;
    std::thread worker([&] { other = Collection::GetServiceSetCollection(); });
    TambServiceSetCollectionBase* const own = Collection::GetServiceSetCollection();
    worker.join();

    EXPECT_EQ(own, other);
}
