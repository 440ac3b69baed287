# What the host uses of Imath stands whole in its headers.
include(borrowedHeaders)
tvk_borrow_headers(Imath::Imath Imath)
set(Imath_FOUND TRUE)
