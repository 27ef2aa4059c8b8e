#include "Moments.h"

#include <algorithm>
#include <cmath>

#include "Number.h"

namespace lakresvos::report {

void CompensatedSum::Add(double number) {
  double const sum = sum_ + number;
  lost_ += std::abs(sum_) >= std::abs(number) ? (sum_ - sum) + number : (number - sum) + sum_;
  sum_ = sum;
}

void CompensatedSum::Merge(CompensatedSum const& other) {
  Add(other.sum_);
  Add(other.lost_);
}

void Moments::Add(double number, double weight) {
  if (weight == 0) {
    return;
  }
  minimum_ = weight_ == 0 ? number : std::min(minimum_, number);
  maximum_ = weight_ == 0 ? number : std::max(maximum_, number);
  weight_ += weight;
  double const distance = number - mean_;
  mean_ += distance * weight / weight_;
  squares_ += weight * distance * (number - mean_);
  sum_.Add(weight * number);
}

void Moments::Merge(Moments const& other) {
  missing_ += other.missing_;
  if (other.weight_ == 0) {
    return;
  }
  minimum_ = weight_ == 0 ? other.minimum_ : std::min(minimum_, other.minimum_);
  maximum_ = weight_ == 0 ? other.maximum_ : std::max(maximum_, other.maximum_);
  double const weight = weight_ + other.weight_;
  double const distance = other.mean_ - mean_;
  mean_ += distance * other.weight_ / weight;
  squares_ += other.squares_ + distance * distance * weight_ * other.weight_ / weight;
  weight_ = weight;
  sum_.Merge(other.sum_);
}

double Moments::Mean() const {
  return weight_ > 0 ? mean_ : kNoNumber;
}

double Moments::Minimum() const {
  return weight_ > 0 ? minimum_ : kNoNumber;
}

double Moments::Maximum() const {
  return weight_ > 0 ? maximum_ : kNoNumber;
}

double Moments::Deviation() const {
  return weight_ > 1 ? std::sqrt(squares_ / (weight_ - 1)) : kNoNumber;
}

}  // namespace lakresvos::report
