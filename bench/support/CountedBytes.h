#ifndef BENCH_SUPPORT_COUNTEDBYTES_H
#define BENCH_SUPPORT_COUNTEDBYTES_H

/// What the program holds from `operator new`, which serves containers and regions alike. Programs that
/// link this count every allocation.
namespace counted_bytes {

/// The bytes held now.
long Held();

/// The most bytes held since Restart().
long Peak();

/// Lets the peak start anew from the bytes held now.
void Restart();

}  // namespace counted_bytes

#endif
