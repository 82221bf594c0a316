// What kind of image a file holds, and whether the file ends before the picture does.
#pragma once

class QIODevice;

namespace brindlemoor {

/// The reader for a file by its first bytes, whatever its name says; nullptr for a file that is no
/// image, or of a kind that is not read.
const char* ImageReaderName(QIODevice& file);

/// False for a picture that was cut off, of which the reader would show a part, and for one that
/// would take minutes. Of kinds whose reader refuses such files by itself, true is answered.
bool IsWholeImage(QIODevice& file, const char* reader);

}  // namespace brindlemoor
