#include "model/store/schemas/Schemas.h"

std::string schemas::search()
{
    // The texts stay in the tasks alone; sizes of columns would only serve a ranking that nobody asks for.
    return R"sql(
CREATE VIRTUAL TABLE taskSearch USING fts5(title, content, "desc", content = 'tasks', content_rowid = 'id',
    columnsize = 0, prefix = '1 2', tokenize = 'orvane');
CREATE TRIGGER taskSearchInserted AFTER INSERT ON tasks BEGIN
    INSERT INTO taskSearch (rowid, title, content, "desc") VALUES (NEW.id, NEW.title, NEW.content, NEW."desc");
END;
CREATE TRIGGER taskSearchDeleted AFTER DELETE ON tasks BEGIN
    INSERT INTO taskSearch (taskSearch, rowid, title, content, "desc")
        VALUES ('delete', OLD.id, OLD.title, OLD.content, OLD."desc");
END;
CREATE TRIGGER taskSearchUpdated AFTER UPDATE OF title, content, "desc" ON tasks BEGIN
    INSERT INTO taskSearch (taskSearch, rowid, title, content, "desc")
        VALUES ('delete', OLD.id, OLD.title, OLD.content, OLD."desc");
    INSERT INTO taskSearch (rowid, title, content, "desc") VALUES (NEW.id, NEW.title, NEW.content, NEW."desc");
END;
INSERT INTO taskSearch (taskSearch) VALUES ('rebuild');
)sql";
}
