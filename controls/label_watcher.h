#pragma once

namespace d2d {

/// Who places a label of the library, and hears of what undoes that.
class label_watcher {
public:
    /// The label is about to measure something else, or to lie elsewhere. Called ahead of the drawing.
    virtual void label_changed() = 0;

protected:
    ~label_watcher() = default;
};

}  // namespace d2d
