"""The rules of the house: which file may include which, how large things may be, what is never written."""
