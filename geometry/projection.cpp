// SPDX-License-Identifier: MIT
#include "geometry/projection.h"

#include "geometry/int32.h"
#include "host/render.h"

#include <cmath>

double g_fovX = 36.4;
double g_fovY = 27.0;
int g_centerX = 400;
int g_centerY = 300;
double g_focalX = 0.0;
double g_focalY = 0.0;
int g_tablesBuilt = 0;
double g_sinTable[kAngleSteps] = {};
double g_cosTable[kAngleSteps] = {};
const CCamera g_defaultCamera;

namespace
{

constexpr double kPi = 3.141592653589793;
constexpr double kTableStep = 0.0007669903939428206; // pi / 4096
constexpr double kFullTurn = 360.0;

/// The table index of an angle in degrees: truncated toward zero to whole steps, then reduced to 0 .. 8191.
int AngleIndex(double angle)
{
    long long step = TruncateToInt32(angle * kAngleSteps / kFullTurn);
    if (step < 0) {
        step = kAngleSteps - (-step) % kAngleSteps;
    }
    return static_cast<int>(step % kAngleSteps);
}

} // namespace

void InitSinCosTables()
{
    if (g_tablesBuilt != 0) {
        return;
    }
    g_tablesBuilt = 1;
    for (int i = 0; i < kAngleSteps; ++i) {
        const double x = i * kTableStep;
        g_sinTable[i] = std::sin(x);
        g_cosTable[i] = std::cos(x);
    }
}

void RotatePoint(double x, double y, double z, double a, double b, double c, double& outX, double& outY, double& outZ)
{
    const int ia = AngleIndex(a);
    const int ib = AngleIndex(b);
    const int ic = AngleIndex(c);

    const double u = x * g_cosTable[ic] + y * g_sinTable[ic];
    const double v = x * g_sinTable[ic] - y * g_cosTable[ic];
    const double w = u * g_sinTable[ib] + z * g_cosTable[ib];
    outX = u * g_cosTable[ib] - z * g_sinTable[ib];
    outY = v * g_cosTable[ia] - w * g_sinTable[ia];
    outZ = v * g_sinTable[ia] + w * g_cosTable[ia];
}

void ToCameraSpace(const CCamera& camera, double x, double y, double z, double& outX, double& outY, double& outZ)
{
    RotatePoint(x - camera.X(), y - camera.Y(), z - camera.Z(), -camera.XRotate(), -camera.YRotate(), -camera.ZRotate(),
                outX, outY, outZ);
}

void ProjectToScreen(double x, double y, double z, long& sx, long& sy)
{
    sx = TruncateToInt32(2.0 * (g_focalX * x / z + g_centerX));
    sy = TruncateToInt32(2.0 * (g_focalY * y / z + g_centerY));
}

void SetCameraFOV(double fovX, double fovY)
{
    g_fovX = fovX;
    g_fovY = fovY;
    g_centerX = Render::Instance().GetActiveWidth() / 2;
    g_centerY = Render::Instance().GetActiveHeight() / 2;
    g_focalX = g_centerX / std::tan(g_fovX * kPi / kFullTurn);
    g_focalY = g_centerY / std::tan(g_fovY * kPi / kFullTurn);
    InitSinCosTables();
}
