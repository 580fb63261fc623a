#pragma once

class QLineEdit;

namespace tarvex {

/// Where the columns of the register rows stand, in pixels. Worked out from the font, once for all rows.
struct UI_RegisterItemLayout {
    int nameLeft = 0;
    int nameWidth = 0;
    int groupLeft = 0;
    int groupWidth = 0;
    int valueLeft = 0;
    int valueWidth = 0;
    int bitLeft = 0;
    int cellWidth = 0;
    int fieldHeight = 0;
    int rowHeight = 0;
    int width = 0;

    /// `sample` has the font and style of the fields and cells.
    static UI_RegisterItemLayout For(const QLineEdit& sample);
};

}
