#pragma once

#include <array>

namespace tvk {

/// One way to write a rotation by other XYZ angles: x + dx, y + dy or dy - y, z + dz, in degrees.
struct EulerCandidate {
    float dx;
    bool negatesY; // together with odd half turns about x and z
    float dy;
    float dz;
};

/// The candidates of the rotation filter, in the order in which they are tried. Some occur twice, and one turns z
/// twice: other tools of the console use the same list, and its order settles ties.
inline constexpr std::array<EulerCandidate, 76> kEulerCandidates{
    {{0, false, 0, 0},         {180, true, 180, 180},    {-180, true, 180, 180},   {180, true, 180, -180},
     {-180, true, -180, -180}, {-180, true, 180, -180},  {180, true, -180, -180},  {360, false, 0, 0},
     {0, false, 360, 0},       {0, false, 0, 360},       {-360, false, 0, 0},      {0, false, -360, 0},
     {0, false, 0, -360},      {-360, false, 360, 360},  {360, false, -360, 360},  {360, false, 360, -360},
     {360, false, -360, -360}, {-360, false, 360, -360}, {-360, false, -360, 360}, {180, true, 540, 540},
     {540, true, 180, 540},    {540, true, 540, 180},    {180, true, 180, 540},    {540, true, 180, 180},
     {180, true, 540, 180},    {-180, true, 540, 540},   {-540, true, 180, 540},   {-540, true, 540, 180},
     {-180, true, 180, 540},   {-540, true, 180, 180},   {-180, true, 540, 180},   {180, true, -540, -540},
     {540, true, -180, -540},  {540, true, -540, -180},  {180, true, -180, -540},  {540, true, -180, -180},
     {180, true, -540, -180},  {-180, true, 540, -540},  {-540, true, 180, -540},  {-540, true, 540, -180},
     {-180, true, 180, -540},  {-540, true, 180, -180},  {-180, true, 540, -180},  {180, true, -540, -540},
     {540, true, -180, -540},  {540, true, -540, -180},  {180, true, -180, -540},  {540, true, -180, -180},
     {180, true, -540, -180},  {540, true, 540, 540},    {-540, true, 540, 540},   {540, true, -540, -540},
     {-540, true, 540, -540},  {540, true, -540, -540},  {360, false, 0, 720},     {-540, true, -180, -180},
     {-180, true, -540, -180}, {360, false, 0, 360},     {0, false, 360, 360},     {360, false, 360, 0},
     {-360, false, 0, -360},   {0, false, -360, -360},   {-360, false, -360, 0},   {-180, true, -180, 180},
     {180, true, -180, 180},   {-180, true, -180, -180}, {180, true, 540, -540},   {540, true, 180, -540},
     {540, true, 540, -180},   {180, true, 180, -540},   {540, true, 180, -180},   {180, true, 540, -180},
     {-180, true, -540, -540}, {-540, true, -180, -540}, {-540, true, -540, -180}, {-180, true, -180, -540}}};

} // namespace tvk
