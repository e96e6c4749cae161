# A stream's bookmark is saved from the options menu; "Edit Bookmark" shows at
# once, and the stored bookmark stays in the data folder for the next start.
clock manual
advance 1000
menu open
menu choose 6003
menu open
menu choose 6002
quit
