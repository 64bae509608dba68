// Keeps the library non-empty while its classes are being written.
namespace demosys_library { int anchor = 0; }
