.pragma library

// Sizes of type are given in logical pixels, fractions kept. Qt takes fractions only in
// points, three quarters of a logical pixel at the 96 dots per inch Qt assumes for them.
function points(pixels) {
    return pixels * 0.75
}
