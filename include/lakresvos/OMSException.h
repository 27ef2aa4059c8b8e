#ifndef LAKRESVOS_OMSEXCEPTION_H
#define LAKRESVOS_OMSEXCEPTION_H

#include <exception>
#include <string>

#include <lakresvos/Export.h>

/// The exception of the library: a caller passed a bad argument.
///
/// What an operation throws it for is said at the operation. Unless that says otherwise, the object
/// that it was called on is unchanged.
///
/// Thread safety: readers; several threads may read an object that none changes.
class LAKRESVOS_EXPORT OMSException : public std::exception {
 public:
  /// @param message the class and operation, " -- " and the failed condition.
  /// @param value1  the first offending value, 0 when there is none.
  /// @param value2  the second offending value, 0 when there is none.
  /// @throws std::bad_alloc.
  OMSException(std::string const& message, double value1, double value2);

  /// A copy of message and values.
  OMSException(OMSException const&) = default;

  /// Replaces message and values by copies.
  OMSException& operator=(OMSException const&) = default;

  ~OMSException() override;

  /// The message followed by ", value 1 == " and the first value, ", value 2 == " and the second,
  /// each as a stream writes a double with its default format. Valid as long as the exception.
  char const* what() const noexcept override;

  /// The message alone; valid as long as the exception.
  std::string const& Message() const { return message_; }

  /// The first offending value, such as the number of subscripts given; 0 when there is none.
  double Value1() const { return value1_; }

  /// The second offending value, such as the number of subscripts needed; 0 when there is none.
  double Value2() const { return value2_; }

 private:
  std::string message_;
  double value1_;
  double value2_;
  std::string what_;
};

#endif
