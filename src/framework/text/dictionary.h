#pragma once

// Insertion-ordered map from text to V, looked up without regard to ASCII letter case. Every
// operation, removal and Key(i) included, takes near-constant time. A key set again keeps its first
// spelling and place; one removed and set again goes to the end.
//
//   bool HasKey(key) const
//   const V& Value(key) const      KeyNotFoundException for a missing key
//   void Value(key, v)             inserts or replaces
//   void Remove(key)               KeyNotFoundException for a missing key
//   int Count() const
//   const std::string& Key(i) const   zero-based, in insertion order; IndexOutOfRangeException
//   void Clear()
