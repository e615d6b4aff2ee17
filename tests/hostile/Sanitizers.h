#pragma once

namespace hostile {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define SURFACEIO_HAS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define SURFACEIO_HAS_SANITIZER 1
#endif
#endif

#ifdef SURFACEIO_HAS_SANITIZER
inline constexpr bool isSanitized = true;
#else
inline constexpr bool isSanitized = false;
#endif

} // namespace hostile
