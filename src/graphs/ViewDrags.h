#pragma once

namespace curve_editor {

/// What the mouse does to a view, as flags that others read and write, too.
struct ViewDrags
{
    bool rubberDrag = false; ///< left-button rectangle drag
    bool panDrag = false;    ///< pan drag
    bool zoomDrag = false;   ///< continuous zoom drag
    bool viewDrag = false;   ///< the drag belongs to the zoom tool
    bool selectDrag = false; ///< the rectangle drag was started, by whatever tool
    bool zoomMode = false;   ///< the editor is in mode ZOOMING: the next press begins such a drag
    int anchorX = 0;         ///< the pixel that a zoom keeps in place
    int anchorY = 0;
    int lastX = 0; ///< mouse at the previous drag step
    int lastY = 0;

    bool isDragged() const { return rubberDrag || panDrag || zoomDrag; }
    /// A rectangle is dragged that selects, or would if there were keys.
    bool isBandDragged() const { return rubberDrag && !viewDrag; }
    /// A rectangle is dragged that becomes the view.
    bool isZoomRectDragged() const { return rubberDrag && viewDrag; }

    /// Cancels what is dragged: clears all flags but zoomMode.
    void clearDrags() { rubberDrag = panDrag = zoomDrag = viewDrag = selectDrag = false; }
};

} // namespace curve_editor
