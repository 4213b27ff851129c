#pragma once

namespace qz {

// Plain value helpers; they return copies so a result never refers to a
// temporary argument.
template <typename T>
inline T min_(const T& a, const T& b) {
    return a < b ? a : b;
}

template <typename T>
inline T max_(const T& a, const T& b) {
    return a < b ? b : a;
}

template <typename T>
inline T clamp(const T& value, const T& low, const T& high) {
    return min_(max_(value, low), high);
}

}  // namespace qz
