#include "app/output/descriptor_stream.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <streambuf>

namespace app {

namespace {

// A stream buffer onto a file descriptor that keeps the system's first error and writes nothing
// after it.
class DescriptorBuffer : public std::streambuf {
public:
    explicit DescriptorBuffer(int fd) : fd_(fd) { setp(buffer_.data(), buffer_.data() + buffer_.size()); }
    int error() const { return error_; }

protected:
    int_type overflow(int_type c) override {
        if (!flush()) {
            return traits_type::eof();
        }
        if (!traits_type::eq_int_type(c, traits_type::eof())) {
            *pptr() = traits_type::to_char_type(c);
            pbump(1);
        }
        return traits_type::not_eof(c);
    }
    int sync() override { return flush() ? 0 : -1; }

private:
    bool flush() {
        for (const char* p = pbase(); error_ == 0 && p < pptr();) {
            const ssize_t n = ::write(fd_, p, static_cast<std::size_t>(pptr() - p));
            if (n > 0) {
                p += n;
            } else if (n == 0) {
                error_ = ENOSPC;  // a device that takes nothing more would be asked forever
            } else if (errno != EINTR) {
                error_ = errno;
            }
        }
        setp(buffer_.data(), buffer_.data() + buffer_.size());
        return error_ == 0;
    }

    int fd_;
    int error_ = 0;
    std::array<char, 1 << 16> buffer_{};
};

}  // namespace

int writeContent(int fd, const OutputFile& file) {
    DescriptorBuffer buffer(fd);
    std::ostream stream(&buffer);
    try {
        file.write(stream);
    } catch (...) {
        // The scene writer, for one, throws once its stream has failed: the reason is the system's.
        if (buffer.error() != 0) {
            return buffer.error();
        }
        throw;
    }
    stream.flush();
    if (buffer.error() == 0 && !stream) {
        throw std::logic_error("the content of " + file.option + " set its stream failing without a write error");
    }
    return buffer.error();
}

}  // namespace app
