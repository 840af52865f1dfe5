#pragma once

namespace program
{

/// Goes where what the program writes belongs: beside it where the pictures lie there, too, as in an
/// unpacked archive, and it can write there, and otherwise into the user's folder. Where it cannot, it stays.
void enterStateFolder();

} // namespace program
