#include "math/exceptions.h"

namespace core {

namespace {
constexpr const char* kUnresolvedResource = "Resource string not implemented";
}

Exception::Exception(unsigned long resource_id) { setMessageFromResource(resource_id); }

Exception::~Exception() = default;

void Exception::setMessageFromResource(unsigned long /*resource_id*/) { message_ = kUnresolvedResource; }

}  // namespace core

namespace math {

MathException::MathException(unsigned long resource_id) : core::Exception(resource_id) {}
MathException::~MathException() = default;

MatrixException::MatrixException(unsigned long resource_id) : MathException(resource_id) {}
MatrixException::~MatrixException() = default;

VectorInFocusException::VectorInFocusException(unsigned long resource_id) : MatrixException(resource_id) {}
VectorInFocusException::~VectorInFocusException() = default;

SingularMatrix3DException::SingularMatrix3DException(unsigned long resource_id) : MatrixException(resource_id) {}
SingularMatrix3DException::~SingularMatrix3DException() = default;

}  // namespace math
