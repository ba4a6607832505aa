"""Makes the help book: the program's own tables, the markup of help/*.md, and the page around them."""
