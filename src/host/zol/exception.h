// The failures of the runtime. Each carries exactly the text that the thrower gave.
#pragma once

#include <exception>

#include "host/zol/export.h"
#include "host/zol/text.h"

namespace Zol {

// Base of all failures of this library. `what()` is the thrower's text, nothing before or behind
// it.
class ZOL_EXPORT Exception : public std::exception {
 public:
  // Ids that some failures carry beside their text; this library only ever makes empty ones.
  class IdBitArray {};

  explicit Exception(String8 text) : text_(std::move(text)) {}
  Exception(Exception const&) = default;
  Exception& operator=(Exception const&) = default;
  ~Exception() override;
  [[nodiscard]] char const* what() const noexcept override { return text_.view().data(); }

 private:
  String8 text_;
};

// A value, a text or a pointer that is not allowed.
class ZOL_EXPORT RangeException : public Exception {
 public:
  explicit RangeException(String8 text, IdBitArray = {}) : Exception(std::move(text)) {}
  ~RangeException() override;
};

// A member exists under the name, with other constructor parameters.
class ZOL_EXPORT NameInUseException : public Exception {
 public:
  using Exception::Exception;
  ~NameInUseException() override;
};

// A rule of the runtime was broken, by the caller or by the runtime itself.
class ZOL_EXPORT InternalException : public Exception {
 public:
  using Exception::Exception;
  ~InternalException() override;
};

// The log could not begin a message; the writer begins the message anew.
class ZOL_EXPORT AttrLogRecordException : public Exception {
 public:
  using Exception::Exception;
  ~AttrLogRecordException() override;
};

// An entity has no id on the log yet.
class ZOL_EXPORT EntityIdUnavailableException : public Exception {
 public:
  using Exception::Exception;
  ~EntityIdUnavailableException() override;
};

// A reference in a message does not fit: unknown, or of another type.
class ZOL_EXPORT AttrLogEntityException : public Exception {
 public:
  explicit AttrLogEntityException(String8 text, IdBitArray = {}) : Exception(std::move(text)) {}
  ~AttrLogEntityException() override;
};

[[noreturn]] ZOL_EXPORT void throwRangeException(String8 const& text);
[[noreturn]] ZOL_EXPORT void throwNameInUseException(String8 const& text);
[[noreturn]] ZOL_EXPORT void throwInternalException(String8 const& text);

}  // namespace Zol
