// The exception tree of the geometry layer. Host failures travel as plain error codes instead.
#pragma once

#include <string>

namespace core {

// Messages would come from a resource table the plug-in does not carry, so every message reads
// the same; no handler shows it.
class Exception {
public:
    explicit Exception(unsigned long resource_id);
    virtual ~Exception();

    Exception(const Exception&) = default;
    Exception& operator=(const Exception&) = default;

    template <typename... Args>
    void message(unsigned long resource_id, Args&&...) {
        setMessageFromResource(resource_id);
    }

    const std::string& getMessage() const { return message_; }

private:
    void setMessageFromResource(unsigned long resource_id);

    std::string message_;
};

}  // namespace core

namespace math {

class MathException : public core::Exception {
public:
    explicit MathException(unsigned long resource_id);
    ~MathException() override;
};

class MatrixException : public MathException {
public:
    explicit MatrixException(unsigned long resource_id);
    ~MatrixException() override;
};

// A point mapped by a projective matrix onto the plane at infinity (w exactly 0).
class VectorInFocusException : public MatrixException {
public:
    explicit VectorInFocusException(unsigned long resource_id);
    ~VectorInFocusException() override;
};

class SingularMatrix3DException : public MatrixException {
public:
    explicit SingularMatrix3DException(unsigned long resource_id);
    ~SingularMatrix3DException() override;
};

}  // namespace math
