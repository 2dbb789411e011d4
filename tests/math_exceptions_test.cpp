#include "math/exceptions.h"

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <type_traits>

static_assert(!std::is_base_of_v<std::exception, core::Exception>);
static_assert(std::is_base_of_v<math::MatrixException, math::VectorInFocusException>);
static_assert(std::is_base_of_v<math::MatrixException, math::SingularMatrix3DException>);
static_assert(std::is_base_of_v<math::MathException, math::MatrixException>);
static_assert(std::is_base_of_v<core::Exception, math::MathException>);
static_assert(std::has_virtual_destructor_v<core::Exception>);

TEST(MathExceptions, MessageIsTheUnresolvedResourceText) {
    const core::Exception e(42);
    EXPECT_EQ(e.getMessage(), "Resource string not implemented");
}

TEST(MathExceptions, MessageReplacementIgnoresArguments) {
    math::SingularMatrix3DException e(0);
    e.message(7, 3.5, "ignored", std::string("also ignored"));
    EXPECT_EQ(e.getMessage(), "Resource string not implemented");
}
