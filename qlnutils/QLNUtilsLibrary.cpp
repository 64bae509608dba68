// Keeps the library non-empty while its classes are being written.
namespace qlnutils_library { int anchor = 0; }
