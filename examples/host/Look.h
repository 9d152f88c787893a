#pragma once

class CurveEditor;

/// A quiet dark look, in which the stage and the curves are what shines.
void setDarkLook();
/// The light look of the same style.
void setLightLook();
/// A dark canvas with a calm grid, which goes with both.
void setCanvasLook(CurveEditor& editor);
