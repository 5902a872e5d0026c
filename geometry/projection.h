// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/camera.h"
#include "geometry/export.h"

/// Sets the process-wide projection: the full horizontal and vertical field of view in degrees, strictly between 0 and
/// 180 (others give projections that are defined but of no use). Reads the host's active size, so it is called once the
/// host is started and again whenever that size changes. The first call builds the rotation tables, without which every
/// rotation gives zero; later calls cost two tangents.
CARDTABLE_API void SetCameraFOV(double fovX, double fovY);

/// The process-wide projection settings.
extern double g_fovX;     ///< horizontal field of view, full angle, degrees
extern double g_fovY;     ///< vertical field of view, full angle, degrees
extern int g_centerX;     ///< half the active width, pixels
extern int g_centerY;     ///< half the active height, pixels
extern double g_focalX;   ///< horizontal focal length, pixels
extern double g_focalY;   ///< vertical focal length, pixels
extern int g_tablesBuilt; ///< the sine and cosine tables have been filled

/// Angles are quantised to 360 / kAngleSteps degrees.
inline constexpr int kAngleSteps = 8192;
extern double g_sinTable[kAngleSteps];
extern double g_cosTable[kAngleSteps];

/// Stands in where neither a polygon nor its scene names a camera; all six values 0, never changed.
extern const CCamera g_defaultCamera;

/// Fills the two tables; does nothing when they are filled.
void InitSinCosTables();

/// Rotates a point through the tables by angles in degrees: by c about z, then by b about y, then by a about x. The
/// first step changes the sign of y, zero angles included. The outputs may be the variables that supplied the inputs.
void RotatePoint(double x, double y, double z, double a, double b, double c, double& outX, double& outY, double& outZ);

/// Brings a world point into the space of a camera: x to the right and y down on the screen, z away from the viewer.
void ToCameraSpace(const CCamera& camera, double x, double y, double z, double& outX, double& outY, double& outZ);

/// Maps a point in camera space to the screen, in half pixels of the active area, truncated toward zero. At z 0 or
/// behind the camera the result is defined but of no use.
void ProjectToScreen(double x, double y, double z, long& sx, long& sy);
