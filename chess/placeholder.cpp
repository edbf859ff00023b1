// Gives the library a translation unit until its first class lands.
