# The flags of all our own targets; libraries from Debian are not held to them.
add_library(tvk_flags INTERFACE)
target_compile_features(tvk_flags INTERFACE cxx_std_17)
if(MSVC)
    target_compile_options(tvk_flags INTERFACE /W3 /utf-8 /fp:precise /permissive- /D_CRT_SECURE_NO_WARNINGS)
    return() # the rest is for the other compilers
endif()
target_compile_options(tvk_flags INTERFACE -Wall -Wextra -Wconversion -Wshadow -Wpedantic -Werror)
if(TVK_HOST STREQUAL "maya")
    # Each kit calls some more of the API deprecated: news for us, and no reason for a user's build to fail.
    target_compile_options(tvk_flags INTERFACE -Wno-error=deprecated-declarations)
endif()
# clang counts sign changes among -Wconversion, g++ does not; the fuzz and tidy builds ask for no more than the others.
target_compile_options(tvk_flags INTERFACE $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>)
# Exported bytes must not depend on the machine: no fused multiply-add, no wider intermediates.
target_compile_options(tvk_flags INTERFACE -ffp-contract=off)

set(TVK_SANITIZE "" CACHE STRING "Sanitizers for every target, as in -fsanitize=…")
if(TVK_SANITIZE)
    target_compile_options(tvk_flags INTERFACE -fsanitize=${TVK_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(tvk_flags INTERFACE -fsanitize=${TVK_SANITIZE})
    # g++ sees uninitialised parts of variants where its own instrumentation stands between writing and reading.
    target_compile_options(tvk_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()
