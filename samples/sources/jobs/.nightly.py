import db

for (name,) in db.run("select name from carriers"):
    print("asking", name)
