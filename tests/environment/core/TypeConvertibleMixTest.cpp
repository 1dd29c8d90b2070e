// SPDX-License-Identifier: MIT
#include "environment/core/TypeConvertibleMix.h"

#include "environment/core/Exception.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace Kova;

struct Edge : TypeConvertibleMix {};
struct ThinEdge : Edge {};
struct ThickEdge : Edge {};

TEST(TypeConvertibleMixTest, CastsToWhatTheObjectIs) {
    ThinEdge thin;
    Edge& edge = thin;
    EXPECT_TRUE(edge.is_a<ThinEdge>());
    EXPECT_TRUE(edge.is_a<Edge>());
    EXPECT_EQ(edge.cast_ptr<ThinEdge>(), &thin);
    EXPECT_EQ(&edge.cast_to<ThinEdge>(), &thin);
    const Edge& constant = thin;
    EXPECT_EQ(constant.cast_ptr<ThinEdge>(), &thin);
    EXPECT_EQ(&constant.cast_to<ThinEdge>(), &thin);
}

TEST(TypeConvertibleMixTest, GivesNothingForAnotherClass) {
    ThinEdge thin;
    const Edge& edge = thin;
    EXPECT_FALSE(edge.is_a<ThickEdge>());
    EXPECT_EQ(edge.cast_ptr<ThickEdge>(), nullptr);
    EXPECT_EQ(thin.cast_ptr<ThickEdge>(), nullptr);
}

TEST(TypeConvertibleMixTest, NamesBothClassesOfACastThatCannotBe) {
    ThinEdge thin;
    Edge& edge = thin;
    EXPECT_THROW((void)static_cast<const Edge&>(edge).cast_to<ThickEdge>(), RuntimeError);
    try {
        (void)edge.cast_to<ThickEdge>();
        FAIL() << "nothing was thrown";
    } catch (const RuntimeError& error) {
        const std::string text = error.what();
        EXPECT_NE(text.find("ThinEdge cannot be used as "), std::string::npos) << text;
        EXPECT_NE(text.find("ThickEdge"), std::string::npos) << text;
    }
}

TEST(TypeConvertibleMixTest, IsDeletedThroughTheMixin) {
    struct Counted : TypeConvertibleMix {
        explicit Counted(int& count) : m_count(count) {}
        ~Counted() override { ++m_count; }
        int& m_count;
    };
    int deleted = 0;
    std::unique_ptr<TypeConvertibleMix>(std::make_unique<Counted>(deleted)).reset();
    EXPECT_EQ(deleted, 1);
}

} // namespace
